<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>--select: an empty name in &quot;%1&quot;</source>
        <translation>--select: ein leerer Name in „%1“</translation>
    </message>
    <message>
        <source>--set: &quot;%1&quot; is not of the form PROPERTY=TEXT</source>
        <translation>--set: „%1“ hat nicht die Form EIGENSCHAFT=TEXT</translation>
    </message>
    <message>
        <source>--units: &quot;%1&quot; is no column from 0 to 9</source>
        <translation>--units: „%1“ ist keine Spalte von 0 bis 9</translation>
    </message>
    <message>
        <source>%1: the file name is empty</source>
        <translation>%1: Der Dateiname ist leer</translation>
    </message>
    <message>
        <source>%1 needs a value</source>
        <translation>%1 braucht einen Wert</translation>
    </message>
    <message>
        <source>unknown option %1</source>
        <translation>unbekannte Option %1</translation>
    </message>
    <message>
        <source>one model file is enough: %1</source>
        <translation>eine Modelldatei genügt: %1</translation>
    </message>
    <message>
        <source>a model file is needed</source>
        <translation>es fehlt eine Modelldatei</translation>
    </message>
    <message>
        <source>--set needs --select NAMES or --select-all</source>
        <translation>--set braucht --select NAMEN oder --select-all</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n members</source>
        <translation>
            <numerusform>%1 von %n Stab</numerusform>
            <numerusform>%1 von %n Stäben</numerusform>
        </translation>
    </message>
    <message>
        <source>Move of %1</source>
        <translation>Verschiebung von %1</translation>
    </message>
    <message numerus="yes">
        <source>Move of %n nodes</source>
        <translation>
            <numerusform>Verschiebung von %n Knoten</numerusform>
            <numerusform>Verschiebung von %n Knoten</numerusform>
        </translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>a group is switched by a property that is yes or no</source>
        <translation>eine Gruppe wird durch eine Eigenschaft geschaltet, die ja oder nein ist</translation>
    </message>
    <message>
        <source>members have no property &quot;%1&quot;</source>
        <translation>Stäbe haben keine Eigenschaft „%1“</translation>
    </message>
    <message>
        <source>the form has a field for &quot;%1&quot; already</source>
        <translation>das Formular hat schon ein Feld für „%1“</translation>
    </message>
    <message>
        <source>every member has a value here: &quot;optional&quot; has no meaning</source>
        <translation>jeder Stab hat hier einen Wert: „optional“ hat keine Bedeutung</translation>
    </message>
    <message>
        <source>the entries of this property are named &quot;%1&quot;</source>
        <translation>die Einträge dieser Eigenschaft heißen „%1“</translation>
    </message>
    <message>
        <source>this describes no editor</source>
        <translation>dies beschreibt keinen Editor</translation>
    </message>
    <message>
        <source>the limits of a quantity are of the type &quot;double&quot;</source>
        <translation>die Grenzen einer Größe sind vom Typ „double“</translation>
    </message>
    <message>
        <source>%1 is no unit set for this property</source>
        <translation>%1 ist keine Einheitengruppe für diese Eigenschaft</translation>
    </message>
    <message>
        <source>an editor &quot;%1&quot; cannot edit this property</source>
        <translation>ein Editor „%1“ kann diese Eigenschaft nicht bearbeiten</translation>
    </message>
    <message>
        <source>%1: there is no member &quot;%2&quot;</source>
        <translation>%1: Es gibt keinen Stab „%2“</translation>
    </message>
    <message>
        <source>there is no property &quot;%1&quot;</source>
        <translation>es gibt keine Eigenschaft „%1“</translation>
    </message>
    <message>
        <source>the form has no field for &quot;%1&quot;</source>
        <translation>das Formular hat kein Feld für „%1“</translation>
    </message>
    <message>
        <source>%1: the field is disabled</source>
        <translation>%1: Das Feld ist gesperrt</translation>
    </message>
    <message>
        <source>%1: %2, unchanged</source>
        <translation>%1: %2, unverändert</translation>
    </message>
    <message>
        <source>%1: not saved: %2</source>
        <translation>%1: nicht gespeichert: %2</translation>
    </message>
    <message>
        <source>saved %1</source>
        <translation>gespeichert: %1</translation>
    </message>
    <message>
        <source>%1 is needed here, not %2</source>
        <translation>hier wird %1 erwartet, nicht %2</translation>
    </message>
    <message>
        <source>the format has no key &quot;%1&quot; here</source>
        <translation>das Format hat hier keinen Schlüssel „%1“</translation>
    </message>
    <message>
        <source>the key &quot;%1&quot; is missing</source>
        <translation>der Schlüssel „%1“ fehlt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is needed here</source>
        <translation>hier wird „%1“ erwartet</translation>
    </message>
    <message>
        <source>this program reads version 1, not %1</source>
        <translation>dieses Programm liest Version 1, nicht %1</translation>
    </message>
    <message>
        <source>text behind the end of the JSON value</source>
        <translation>Text hinter dem Ende des JSON-Werts</translation>
    </message>
    <message>
        <source>the text ends where &quot;%1&quot; is needed</source>
        <translation>der Text endet, wo „%1“ erwartet wird</translation>
    </message>
    <message>
        <source>the text ends where a value is needed</source>
        <translation>der Text endet, wo ein Wert erwartet wird</translation>
    </message>
    <message>
        <source>nested too deeply</source>
        <translation>zu tief geschachtelt</translation>
    </message>
    <message>
        <source>a name in quotes is needed here</source>
        <translation>hier wird ein Name in Anführungszeichen erwartet</translation>
    </message>
    <message>
        <source>the name &quot;%1&quot; stands twice in one object</source>
        <translation>der Name „%1“ steht zweimal in einem Objekt</translation>
    </message>
    <message>
        <source>no value begins with &quot;%1&quot;</source>
        <translation>kein Wert beginnt mit „%1“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no JSON value</source>
        <translation>„%1“ ist kein JSON-Wert</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no JSON number</source>
        <translation>„%1“ ist keine JSON-Zahl</translation>
    </message>
    <message>
        <source>the number %1 is out of the range of a double</source>
        <translation>die Zahl %1 liegt außerhalb des Bereichs einer Gleitkommazahl</translation>
    </message>
    <message>
        <source>the closing quotes of this text are missing</source>
        <translation>das schließende Anführungszeichen dieses Texts fehlt</translation>
    </message>
    <message>
        <source>a control character inside a text</source>
        <translation>ein Steuerzeichen in einem Text</translation>
    </message>
    <message>
        <source>half a surrogate pair inside a text</source>
        <translation>ein halbes Surrogatpaar in einem Text</translation>
    </message>
    <message>
        <source>an unknown escape inside a text</source>
        <translation>eine unbekannte Escape-Sequenz in einem Text</translation>
    </message>
    <message>
        <source>null</source>
        <translation>null</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>true oder false</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>eine Zahl</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>ein Text</translation>
    </message>
    <message>
        <source>a list</source>
        <translation>eine Liste</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>ein Objekt</translation>
    </message>
    <message>
        <source>bytes that are not UTF-8</source>
        <translation>Bytes, die kein UTF-8 sind</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not in the list</source>
        <translation>%1: „%2“ steht nicht in der Liste</translation>
    </message>
    <message>
        <source>%1: there is no choice &quot;%2&quot;</source>
        <translation>%1: Es gibt keine Auswahl „%2“</translation>
    </message>
    <message>
        <source>%1: the text has characters that cannot be typed</source>
        <translation>%1: Der Text hat Zeichen, die sich nicht tippen lassen</translation>
    </message>
    <message>
        <source>argument %1 is not UTF-8</source>
        <translation>Argument %1 ist kein UTF-8</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is neither yes nor no</source>
        <translation>%1: „%2“ ist weder yes noch no</translation>
    </message>
    <message>
        <source>The form cannot be used</source>
        <translation>Das Formular ist nicht verwendbar</translation>
    </message>
    <message>
        <source>there is no display for a window; --help tells what goes without one</source>
        <translation>es gibt keine Anzeige für ein Fenster; --help nennt, was ohne geht</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Stütze</translation>
    </message>
    <message>
        <source>Beam</source>
        <translation>Träger</translation>
    </message>
    <message>
        <source>Rafter</source>
        <translation>Rahmenriegel</translation>
    </message>
    <message>
        <source>Brace</source>
        <translation>Verbandsstab</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keines</translation>
    </message>
    <message>
        <source>Roller</source>
        <translation>Verschieblich</translation>
    </message>
    <message>
        <source>Pinned</source>
        <translation>Gelenkig</translation>
    </message>
    <message>
        <source>Fixed</source>
        <translation>Eingespannt</translation>
    </message>
    <message>
        <source>Vertical, per length</source>
        <translation>Vertikal, je Stablänge</translation>
    </message>
    <message>
        <source>Vertical, per plan length</source>
        <translation>Vertikal, je Grundrisslänge</translation>
    </message>
    <message>
        <source>Normal to the member</source>
        <translation>Senkrecht zum Stab</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Cross section</source>
        <translation>Querschnitt</translation>
    </message>
    <message>
        <source>Material</source>
        <translation>Werkstoff</translation>
    </message>
    <message>
        <source>Length offset</source>
        <translation>Längenzuschlag</translation>
    </message>
    <message>
        <source>Line load</source>
        <translation>Linienlast</translation>
    </message>
    <message>
        <source>Load direction</source>
        <translation>Lastrichtung</translation>
    </message>
    <message>
        <source>Moment</source>
        <translation>Moment</translation>
    </message>
    <message>
        <source>Temperature difference</source>
        <translation>Temperaturdifferenz</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Verdrehung</translation>
    </message>
    <message>
        <source>Thickness</source>
        <translation>Dicke</translation>
    </message>
    <message>
        <source>Elastic modulus</source>
        <translation>Elastizitätsmodul</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Auflager</translation>
    </message>
    <message>
        <source>Hinge at start</source>
        <translation>Gelenk am Anfang</translation>
    </message>
    <message>
        <source>Hinge at end</source>
        <translation>Gelenk am Ende</translation>
    </message>
    <message>
        <source>Bedded foundation</source>
        <translation>Elastische Bettung</translation>
    </message>
    <message>
        <source>Bedding modulus</source>
        <translation>Bettungsmodul</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Bemerkung</translation>
    </message>
    <message>
        <source>Drawing</source>
        <translation>Zeichnung</translation>
    </message>
    <message>
        <source>a member needs a name</source>
        <translation>ein Stab braucht einen Namen</translation>
    </message>
    <message>
        <source>there is a member &quot;%1&quot; already</source>
        <translation>es gibt schon einen Stab „%1“</translation>
    </message>
    <message>
        <source>this is no finite number</source>
        <translation>das ist keine endliche Zahl</translation>
    </message>
    <message>
        <source>the model has no cross section &quot;%1&quot;</source>
        <translation>das Modell hat keinen Querschnitt „%1“</translation>
    </message>
    <message>
        <source>the model has no material &quot;%1&quot;</source>
        <translation>das Modell hat keinen Werkstoff „%1“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no such choice</source>
        <translation>„%1“ steht nicht zur Auswahl</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>The distance of the nodes and the length offset</source>
        <translation>Abstand der Knoten und Längenzuschlag</translation>
    </message>
    <message>
        <source>Mass</source>
        <translation>Masse</translation>
    </message>
    <message>
        <source>Area, length and density</source>
        <translation>Fläche, Länge und Dichte</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>Last</translation>
    </message>
    <message>
        <source>The resultant of the line load</source>
        <translation>Resultierende der Linienlast</translation>
    </message>
    <message>
        <source>Span moment</source>
        <translation>Feldmoment</translation>
    </message>
    <message>
        <source>Of the line load on the member as a simple beam</source>
        <translation>Aus der Linienlast auf dem Stab als Einfeldträger</translation>
    </message>
    <message>
        <source>Thermal curvature</source>
        <translation>Temperaturkrümmung</translation>
    </message>
    <message>
        <source>Of the temperature difference on the free member</source>
        <translation>Aus der Temperaturdifferenz am freien Stab</translation>
    </message>
    <message>
        <source>Buckling load</source>
        <translation>Knicklast</translation>
    </message>
    <message>
        <source>In the plane, with hinged ends</source>
        <translation>In der Ebene, mit gelenkigen Enden</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>U&amp;nits </source>
        <translation>Ei&amp;nheiten </translation>
    </message>
    <message>
        <source>a name must not be empty</source>
        <translation>ein Name darf nicht leer sein</translation>
    </message>
    <message>
        <source>the name &quot;%1&quot; is taken already</source>
        <translation>der Name „%1“ ist schon vergeben</translation>
    </message>
    <message>
        <source>the model has no node &quot;%1&quot;</source>
        <translation>das Modell hat keinen Knoten „%1“</translation>
    </message>
    <message>
        <source>a member needs two different nodes</source>
        <translation>ein Stab braucht zwei verschiedene Knoten</translation>
    </message>
    <message>
        <source>minus %1</source>
        <translation>minus %1</translation>
    </message>
    <message>
        <source>, limited to %1</source>
        <translation>, begrenzt auf %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no finite number</source>
        <translation>„%1“ ist keine endliche Zahl</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: decimals stand behind a point</source>
        <translation>„%1“: Dezimalstellen stehen hinter einem Punkt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not understood as a number with a unit such as %2</source>
        <translation>„%1“ ist nicht als Zahl mit einer Einheit wie %2 zu verstehen</translation>
    </message>
    <message>
        <source>from %1 to %2</source>
        <translation>von %1 bis %2</translation>
    </message>
    <message>
        <source>at least %1</source>
        <translation>mindestens %1</translation>
    </message>
    <message>
        <source>at most %1</source>
        <translation>höchstens %1</translation>
    </message>
    <message>
        <source>en</source>
        <comment>the code of the language of these texts</comment>
        <translation>de</translation>
    </message>
    <message>
        <source>Usage: frame_editor [MODEL.json] [options]

Without options of the second group a window opens on the model. With one of them the
program types into the same window without showing it, tells what came of it, and ends.

  --select NAMES       selects members, names separated by commas; may be repeated
  --select-all         selects all members
  --units COLUMN       unit settings, 0 to 9: 0 to 7 metric, 8 and 9 imperial
  --form FILE          the form of the properties, in place of the one that comes along

  --set PROPERTY=TEXT  types TEXT into the field of the selected members; may be repeated
  --list               prints the members, the selected ones if there are any
  --print              prints their properties, at the end of all settings
  --save FILE          writes the model
  --screenshot FILE    writes a picture of the window

Choices, yes and no are written as in a model file or in English, in whatever language the
window speaks. A text that is refused ends the program with code 1, and nothing
is written.
</source>
        <translation>Aufruf: frame_editor [MODELL.json] [Optionen]

Ohne Optionen der zweiten Gruppe öffnet sich ein Fenster mit dem Modell. Mit einer von ihnen
tippt das Programm in dasselbe Fenster, ohne es zu zeigen, sagt, was daraus wurde, und endet.

  --select NAMEN       wählt Stäbe aus, Namen durch Kommas getrennt; mehrfach möglich
  --select-all         wählt alle Stäbe aus
  --units SPALTE       Einheiten, 0 bis 9: 0 bis 7 metrisch, 8 und 9 angloamerikanisch
  --form DATEI         das Formular der Eigenschaften, anstelle des mitgelieferten

  --set EIGENSCHAFT=TEXT  tippt TEXT in das Feld der ausgewählten Stäbe; mehrfach möglich
  --list               gibt die Stäbe aus, die ausgewählten, wenn es welche gibt
  --print              gibt ihre Eigenschaften aus, am Ende aller Eingaben
  --save DATEI         schreibt das Modell
  --screenshot DATEI   schreibt ein Bild des Fensters

Auswahlen, yes und no schreibt man wie in einer Modelldatei oder auf Englisch, in welcher Sprache
das Fenster auch spricht. Ein Text, der abgelehnt wird, beendet das Programm mit dem Code 1, und
nichts wird geschrieben.
</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no whole number from %2 to %3</source>
        <translation>„%1“ ist keine ganze Zahl von %2 bis %3</translation>
    </message>
    <message>
        <source>Rigid link</source>
        <translation>Starrer Stab</translation>
    </message>
    <message>
        <source>Divisions</source>
        <translation>Teilungen</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2 is needed here</source>
        <translation>hier wird eine ganze Zahl von %1 bis %2 erwartet</translation>
    </message>
    <message>
        <source>this is longer than %1 characters</source>
        <translation>das ist länger als %1 Zeichen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot stand here</source>
        <translation>„%1“ kann hier nicht stehen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither yes nor no</source>
        <translation>„%1“ ist weder yes noch no</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Start node</source>
        <translation>Anfangsknoten</translation>
    </message>
    <message>
        <source>End node</source>
        <translation>Endknoten</translation>
    </message>
    <message>
        <source>%1 is less than %2</source>
        <translation>%1 ist kleiner als %2</translation>
    </message>
    <message>
        <source>%1 is more than %2</source>
        <translation>%1 ist größer als %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not in the list</source>
        <translation>„%1“ steht nicht in der Liste</translation>
    </message>
    <message>
        <source>a member needs two nodes, a section and a material</source>
        <translation>ein Stab braucht zwei Knoten, einen Querschnitt und einen Werkstoff</translation>
    </message>
    <message>
        <source>a rigid link has no such value</source>
        <translation>ein starrer Stab hat keinen solchen Wert</translation>
    </message>
    <message>
        <source>this cannot be empty</source>
        <translation>das darf nicht leer sein</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no place here</source>
        <translation>„%1“ hat hier keinen Platz</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not of the form MEMBER.COLUMN=...</source>
        <translation>%1: „%2“ hat nicht die Form STAB.SPALTE=...</translation>
    </message>
    <message>
        <source>
In the table of members, after the fields and in the order given; may be repeated:
  --cell MEMBER.COLUMN=TEXT   types TEXT into a cell
  --paste MEMBER.COLUMN=FILE  pastes the text of FILE with that cell as its corner;
                       without a member the row below the last one is meant
</source>
        <translation>
In der Stabtabelle, nach den Feldern und in der angegebenen Reihenfolge; mehrfach möglich:
  --cell STAB.SPALTE=TEXT    tippt TEXT in eine Zelle
  --paste STAB.SPALTE=DATEI  fügt den Text von DATEI mit dieser Zelle als Ecke ein;
                       ohne Stab ist die Zeile unter der letzten gemeint
</translation>
    </message>
    <message>
        <source>the table has no column &quot;%1&quot;</source>
        <translation>die Tabelle hat keine Spalte „%1“</translation>
    </message>
    <message>
        <source>%1.%2: unchanged</source>
        <translation>%1.%2: unverändert</translation>
    </message>
    <message>
        <source>%1: this member has no such cell</source>
        <translation>%1: Dieser Stab hat keine solche Zelle</translation>
    </message>
    <message>
        <source>Deletion of %1</source>
        <translation>Löschen von %1</translation>
    </message>
    <message numerus="yes">
        <source>Deletion of %n members</source>
        <translation>
            <numerusform>Löschen von %n Stab</numerusform>
            <numerusform>Löschen von %n Stäben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> and %n more</source>
        <translation>
            <numerusform> und %n weiterer</numerusform>
            <numerusform> und %n weitere</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>frame_editor::Canvas</name>
    <message>
        <source>Elevation</source>
        <translation>Aufriss</translation>
    </message>
    <message>
        <source>Unnamed</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>%1x %2   y %3</source>
        <translation>%1x %2   y %3</translation>
    </message>
    <message>
        <source>rulers in metres</source>
        <translation>Lineale in Metern</translation>
    </message>
    <message>
        <source>%1: written</source>
        <translation>%1: übernommen</translation>
    </message>
</context>
<context>
    <name>frame_editor::CanvasOverview</name>
    <message>
        <source>Overview</source>
        <translation>Übersicht</translation>
    </message>
</context>
<context>
    <name>frame_editor::Document</name>
    <message>
        <source>two members cannot have the same name</source>
        <translation>zwei Stäbe können nicht denselben Namen haben</translation>
    </message>
    <message>
        <source>this is no finite number</source>
        <translation>das ist keine endliche Zahl</translation>
    </message>
    <message>
        <source>a member needs two different nodes</source>
        <translation>ein Stab braucht zwei verschiedene Knoten</translation>
    </message>
</context>
<context>
    <name>frame_editor::Form</name>
    <message>
        <source>All properties</source>
        <translation>Alle Eigenschaften</translation>
    </message>
    <message>
        <source>Bedded foundation</source>
        <translation>Elastische Bettung</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>Ends</source>
        <translation>Stabenden</translation>
    </message>
    <message>
        <source>Loads</source>
        <translation>Lasten</translation>
    </message>
    <message>
        <source>Loads alone</source>
        <translation>Nur Lasten</translation>
    </message>
    <message>
        <source>Member</source>
        <translation>Stab</translation>
    </message>
    <message>
        <source>Moment at the start</source>
        <translation>Moment am Anfang</translation>
    </message>
    <message>
        <source>Remarks</source>
        <translation>Bemerkungen</translation>
    </message>
</context>
<context>
    <name>frame_editor::MainWindow</name>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>&amp;Öffnen...</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Speichern &amp;unter...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Fit to window</source>
        <translation>In Fenster &amp;einpassen</translation>
    </message>
    <message>
        <source>Form &quot;%1&quot;</source>
        <translation>Formular „%1“</translation>
    </message>
    <message>
        <source>&amp;Open a form...</source>
        <translation>Formular &amp;öffnen...</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Einheiten</translation>
    </message>
    <message>
        <source>The units of length, thickness, load and elastic modulus</source>
        <translation>Die Einheiten von Länge, Dicke, Last und Elastizitätsmodul</translation>
    </message>
    <message>
        <source>Members</source>
        <translation>Stäbe</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Ergebnisse</translation>
    </message>
    <message>
        <source>Overview</source>
        <translation>Übersicht</translation>
    </message>
    <message>
        <source>The model cannot be opened</source>
        <translation>Das Modell lässt sich nicht öffnen</translation>
    </message>
    <message>
        <source>%1 opened</source>
        <translation>%1 geöffnet</translation>
    </message>
    <message>
        <source>The form cannot be used</source>
        <translation>Das Formular ist nicht verwendbar</translation>
    </message>
    <message>
        <source>Form: %1</source>
        <translation>Formular: %1</translation>
    </message>
    <message>
        <source>Open a form</source>
        <translation>Formular öffnen</translation>
    </message>
    <message>
        <source>Forms (*.json)</source>
        <translation>Formulare (*.json)</translation>
    </message>
    <message>
        <source>Open a model</source>
        <translation>Modell öffnen</translation>
    </message>
    <message>
        <source>Frame models (*.json)</source>
        <translation>Rahmenmodelle (*.json)</translation>
    </message>
    <message>
        <source>Save the model</source>
        <translation>Modell speichern</translation>
    </message>
    <message>
        <source>The model cannot be saved</source>
        <translation>Das Modell lässt sich nicht speichern</translation>
    </message>
    <message>
        <source>%1 saved</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>Unsaved changes</source>
        <translation>Nicht gespeicherte Änderungen</translation>
    </message>
    <message>
        <source>The model has changes that are not saved.</source>
        <translation>Das Modell hat Änderungen, die nicht gespeichert sind.</translation>
    </message>
    <message>
        <source>Unnamed</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>%1[*] - Frame editor</source>
        <translation>%1[*] - Rahmeneditor</translation>
    </message>
    <message>
        <source>Table of members</source>
        <translation>Stabtabelle</translation>
    </message>
    <message>
        <source>There is no member &quot;%1&quot;</source>
        <translation>Es gibt keinen Stab „%1“</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <translation>%1; %2</translation>
    </message>
    <message>
        <source>%1: undone</source>
        <translation>%1: rückgängig gemacht</translation>
    </message>
    <message>
        <source>%1: redone</source>
        <translation>%1: wiederholt</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Delete %1</source>
        <translation>%1 &amp;löschen</translation>
    </message>
    <message numerus="yes">
        <source>&amp;Delete %n members</source>
        <translation>
            <numerusform>%n Stab &amp;löschen</numerusform>
            <numerusform>%n Stäbe &amp;löschen</numerusform>
        </translation>
    </message>
    <message>
        <source>nothing is deleted</source>
        <translation>nichts wird gelöscht</translation>
    </message>
    <message>
        <source>%1: done</source>
        <translation>%1: ausgeführt</translation>
    </message>
    <message>
        <source>nodes that stay without a member: %1</source>
        <translation>Knoten, die ohne Stab bleiben: %1</translation>
    </message>
</context>
<context>
    <name>frame_editor::MemberList</name>
    <message>
        <source>Members</source>
        <translation>Stäbe</translation>
    </message>
</context>
<context>
    <name>frame_editor::MemberTable</name>
    <message>
        <source>Table of members</source>
        <translation>Stabtabelle</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Clearing</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>a member needs two nodes, a section and a material</source>
        <translation>ein Stab braucht zwei Knoten, einen Querschnitt und einen Werkstoff</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>C&amp;lear cells</source>
        <translation>&amp;Zellen leeren</translation>
    </message>
</context>
<context>
    <name>frame_editor::MemberTableModel</name>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
    <message>
        <source>A rigid link has no such value</source>
        <translation>Ein starrer Stab hat keinen solchen Wert</translation>
    </message>
    <message>
        <source>A name makes a new member</source>
        <translation>Ein Name legt einen neuen Stab an</translation>
    </message>
    <message>
        <source>Zooms to %1</source>
        <translation>Zoomt auf %1</translation>
    </message>
    <message>
        <source>Zoom to %1</source>
        <translation>Auf %1 zoomen</translation>
    </message>
    <message>
        <source>%1: written; %2</source>
        <translation>%1: übernommen; %2</translation>
    </message>
    <message>
        <source>%1: written</source>
        <translation>%1: übernommen</translation>
    </message>
    <message>
        <source>New member %1</source>
        <translation>Neuer Stab %1</translation>
    </message>
    <message numerus="yes">
        <source>%n new members</source>
        <translation>
            <numerusform>%n neuer Stab</numerusform>
            <numerusform>%n neue Stäbe</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n cells</source>
        <translation>
            <numerusform>%1 von %n Zelle</numerusform>
            <numerusform>%1 von %n Zellen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>New member</source>
        <translation>Neuer Stab</translation>
    </message>
    <message>
        <source>column %1</source>
        <translation>Spalte %1</translation>
    </message>
    <message>
        <source>%1, %2: %3</source>
        <translation>%1, %2: %3</translation>
    </message>
    <message>
        <source>%1; this cell was left as it is</source>
        <translation>%1; diese Zelle blieb, wie sie ist</translation>
    </message>
    <message numerus="yes">
        <source>%n cells were left as they are; %1</source>
        <translation>
            <numerusform>%n Zelle blieb, wie sie ist; %1</numerusform>
            <numerusform>%n Zellen blieben, wie sie sind; %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>frame_editor::PropertyField</name>
    <message>
        <source>&quot;%1&quot; cannot stand here</source>
        <translation>„%1“ kann hier nicht stehen</translation>
    </message>
    <message>
        <source>%1: limited to %2, &quot;%3&quot; was typed</source>
        <translation>%1: begrenzt auf %2, eingegeben war „%3“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not in the list</source>
        <translation>„%1“ steht nicht in der Liste</translation>
    </message>
    <message>
        <source>%1: %2; nothing is written</source>
        <translation>%1: %2; nichts wird übernommen</translation>
    </message>
    <message>
        <source>A rigid link has no such value</source>
        <translation>Ein starrer Stab hat keinen solchen Wert</translation>
    </message>
</context>
<context>
    <name>frame_editor::PropertyPanel</name>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>The members differ:</source>
        <translation>Die Stäbe unterscheiden sich:</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>No member is selected</source>
        <translation>Kein Stab ist ausgewählt</translation>
    </message>
    <message>
        <source>Member %1</source>
        <translation>Stab %1</translation>
    </message>
    <message numerus="yes">
        <source>%n members: %1</source>
        <translation>
            <numerusform>%n Stab: %1</numerusform>
            <numerusform>%n Stäbe: %1</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: written</source>
        <translation>%1: übernommen</translation>
    </message>
</context>
<context>
    <name>frame_editor::ResultsView</name>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
</context>
</TS>
