<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>Reset to default.</source>
        <comment>makeLineEditWithOptionalValue</comment>
        <translation>Rétablir la valeur par défaut.</translation>
    </message>
    <message>
        <source>*VARIES*</source>
        <translation>*VARIE*</translation>
    </message>
    <message>
        <source>An exception occurred:
%1</source>
        <translation>Une exception s’est produite&#xa0;:
%1</translation>
    </message>
    <message>
        <source>Yes</source>
        <comment>property_yes_no</comment>
        <translation>Oui</translation>
    </message>
    <message>
        <source>No</source>
        <comment>property_yes_no</comment>
        <translation>Non</translation>
    </message>
    <message>
        <source>The values differ.</source>
        <comment>accessible description</comment>
        <translation>Les valeurs diffèrent.</translation>
    </message>
    <message>
        <source>The text is not valid.</source>
        <comment>accessible description</comment>
        <translation>Le texte n’est pas valide.</translation>
    </message>
</context>
<context>
    <name>zel::qt::MultiEditCheckBoxGroup</name>
    <message>
        <source>All</source>
        <translation>Tous</translation>
    </message>
</context>
<context>
    <name>zel::qt::MultiEditFilePicker</name>
    <message>
        <source>Open File</source>
        <translation>Ouvrir un fichier</translation>
    </message>
    <message>
        <source>Open Files</source>
        <translation>Ouvrir des fichiers</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ouvrir un dossier</translation>
    </message>
</context>
</TS>
