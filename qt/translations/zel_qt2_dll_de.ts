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
    <message>
        <source>An exception occurred:
%1</source>
        <translation>Eine Ausnahme ist aufgetreten:
%1</translation>
    </message>
    <message>
        <source>Yes</source>
        <comment>property_yes_no</comment>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <comment>property_yes_no</comment>
        <translation>Nein</translation>
    </message>
    <message>
        <source>The values differ.</source>
        <comment>accessible description</comment>
        <translation>Die Werte sind verschieden.</translation>
    </message>
    <message>
        <source>The text is not valid.</source>
        <comment>accessible description</comment>
        <translation>Der Text ist ungültig.</translation>
    </message>
</context>
<context>
    <name>zel::qt::MultiEditCheckBoxGroup</name>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
</context>
<context>
    <name>zel::qt::MultiEditFilePicker</name>
    <message>
        <source>Open File</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>Open Files</source>
        <translation>Dateien öffnen</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
</context>
</TS>
