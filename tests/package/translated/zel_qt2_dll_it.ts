<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it_IT">
<context>
    <name>QObject</name>
    <message>
        <source>*VARIES*</source>
        <translation>*VARIA*</translation>
    </message>
</context>
</TS>
