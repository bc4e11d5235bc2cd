<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>Reset to default.</source>
        <comment>makeLineEditWithOptionalValue</comment>
        <translation>Auf den Standardwert zurücksetzen.</translation>
    </message>
    <message>
        <source>*VARIES*</source>
        <translation>*VARIIERT*</translation>
    </message>
</context>
</TS>
