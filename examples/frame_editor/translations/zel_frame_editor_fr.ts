<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>--select: an empty name in &quot;%1&quot;</source>
        <translation>--select&#xa0;: un nom vide dans «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>--set: &quot;%1&quot; is not of the form PROPERTY=TEXT</source>
        <translation>--set&#xa0;: «&#xa0;%1&#xa0;» n’est pas de la forme PROPRIÉTÉ=TEXTE</translation>
    </message>
    <message>
        <source>--units: &quot;%1&quot; is no column from 0 to 9</source>
        <translation>--units&#xa0;: «&#xa0;%1&#xa0;» n’est pas une colonne de 0 à 9</translation>
    </message>
    <message>
        <source>%1: the file name is empty</source>
        <translation>%1&#xa0;: le nom de fichier est vide</translation>
    </message>
    <message>
        <source>%1 needs a value</source>
        <translation>%1 attend une valeur</translation>
    </message>
    <message>
        <source>unknown option %1</source>
        <translation>option inconnue %1</translation>
    </message>
    <message>
        <source>one model file is enough: %1</source>
        <translation>un seul fichier de modèle suffit&#xa0;: %1</translation>
    </message>
    <message>
        <source>a model file is needed</source>
        <translation>il faut un fichier de modèle</translation>
    </message>
    <message>
        <source>--set needs --select NAMES or --select-all</source>
        <translation>--set exige --select NOMS ou --select-all</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n members</source>
        <translation>
            <numerusform>%1 de %n barre</numerusform>
            <numerusform>%1 de %n barres</numerusform>
        </translation>
    </message>
    <message>
        <source>Move of %1</source>
        <translation>Déplacement de %1</translation>
    </message>
    <message numerus="yes">
        <source>Move of %n nodes</source>
        <translation>
            <numerusform>Déplacement de %n nœud</numerusform>
            <numerusform>Déplacement de %n nœuds</numerusform>
        </translation>
    </message>
    <message>
        <source>yes</source>
        <translation>oui</translation>
    </message>
    <message>
        <source>no</source>
        <translation>non</translation>
    </message>
    <message>
        <source>a group is switched by a property that is yes or no</source>
        <translation>un groupe est commandé par une propriété qui vaut oui ou non</translation>
    </message>
    <message>
        <source>members have no property &quot;%1&quot;</source>
        <translation>les barres n’ont pas de propriété «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>the form has a field for &quot;%1&quot; already</source>
        <translation>le formulaire a déjà un champ pour «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>every member has a value here: &quot;optional&quot; has no meaning</source>
        <translation>chaque barre a ici une valeur&#xa0;: «&#xa0;optional&#xa0;» n’a pas de sens</translation>
    </message>
    <message>
        <source>the entries of this property are named &quot;%1&quot;</source>
        <translation>les entrées de cette propriété se nomment «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>this describes no editor</source>
        <translation>ceci ne décrit aucun éditeur</translation>
    </message>
    <message>
        <source>the limits of a quantity are of the type &quot;double&quot;</source>
        <translation>les limites d’une grandeur sont du type «&#xa0;double&#xa0;»</translation>
    </message>
    <message>
        <source>%1 is no unit set for this property</source>
        <translation>%1 n’est pas un jeu d’unités pour cette propriété</translation>
    </message>
    <message>
        <source>an editor &quot;%1&quot; cannot edit this property</source>
        <translation>un éditeur «&#xa0;%1&#xa0;» ne peut pas modifier cette propriété</translation>
    </message>
    <message>
        <source>%1: there is no member &quot;%2&quot;</source>
        <translation>%1&#xa0;: il n’y a pas de barre «&#xa0;%2&#xa0;»</translation>
    </message>
    <message>
        <source>there is no property &quot;%1&quot;</source>
        <translation>il n’y a pas de propriété «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>the form has no field for &quot;%1&quot;</source>
        <translation>le formulaire n’a pas de champ pour «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>%1: the field is disabled</source>
        <translation>%1&#xa0;: le champ est désactivé</translation>
    </message>
    <message>
        <source>%1: %2, unchanged</source>
        <translation>%1: %2, inchangé</translation>
    </message>
    <message>
        <source>%1: not saved: %2</source>
        <translation>%1&#xa0;: non enregistré&#xa0;: %2</translation>
    </message>
    <message>
        <source>saved %1</source>
        <translation>enregistré&#xa0;: %1</translation>
    </message>
    <message>
        <source>%1 is needed here, not %2</source>
        <translation>%1 est attendu ici, pas %2</translation>
    </message>
    <message>
        <source>the format has no key &quot;%1&quot; here</source>
        <translation>le format n’a pas de clé «&#xa0;%1&#xa0;» ici</translation>
    </message>
    <message>
        <source>the key &quot;%1&quot; is missing</source>
        <translation>il manque la clé «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is needed here</source>
        <translation>«&#xa0;%1&#xa0;» est attendu ici</translation>
    </message>
    <message>
        <source>this program reads version 1, not %1</source>
        <translation>ce programme lit la version 1, pas %1</translation>
    </message>
    <message>
        <source>text behind the end of the JSON value</source>
        <translation>texte après la fin de la valeur JSON</translation>
    </message>
    <message>
        <source>the text ends where &quot;%1&quot; is needed</source>
        <translation>le texte s’arrête là où «&#xa0;%1&#xa0;» est attendu</translation>
    </message>
    <message>
        <source>the text ends where a value is needed</source>
        <translation>le texte s’arrête là où une valeur est attendue</translation>
    </message>
    <message>
        <source>nested too deeply</source>
        <translation>imbrication trop profonde</translation>
    </message>
    <message>
        <source>a name in quotes is needed here</source>
        <translation>un nom entre guillemets est attendu ici</translation>
    </message>
    <message>
        <source>the name &quot;%1&quot; stands twice in one object</source>
        <translation>le nom «&#xa0;%1&#xa0;» figure deux fois dans un objet</translation>
    </message>
    <message>
        <source>no value begins with &quot;%1&quot;</source>
        <translation>aucune valeur ne commence par «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no JSON value</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas une valeur JSON</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no JSON number</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un nombre JSON</translation>
    </message>
    <message>
        <source>the number %1 is out of the range of a double</source>
        <translation>le nombre %1 sort du domaine des nombres à virgule flottante</translation>
    </message>
    <message>
        <source>the closing quotes of this text are missing</source>
        <translation>les guillemets fermants de ce texte manquent</translation>
    </message>
    <message>
        <source>a control character inside a text</source>
        <translation>un caractère de contrôle dans un texte</translation>
    </message>
    <message>
        <source>half a surrogate pair inside a text</source>
        <translation>une moitié de paire de substitution dans un texte</translation>
    </message>
    <message>
        <source>an unknown escape inside a text</source>
        <translation>une séquence d’échappement inconnue dans un texte</translation>
    </message>
    <message>
        <source>null</source>
        <translation>null</translation>
    </message>
    <message>
        <source>true or false</source>
        <translation>true ou false</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>un nombre</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>un texte</translation>
    </message>
    <message>
        <source>a list</source>
        <translation>une liste</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>un objet</translation>
    </message>
    <message>
        <source>bytes that are not UTF-8</source>
        <translation>des octets qui ne sont pas de l’UTF-8</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not in the list</source>
        <translation>%1&#xa0;: «&#xa0;%2&#xa0;» n’est pas dans la liste</translation>
    </message>
    <message>
        <source>%1: there is no choice &quot;%2&quot;</source>
        <translation>%1&#xa0;: il n’y a pas de choix «&#xa0;%2&#xa0;»</translation>
    </message>
    <message>
        <source>%1: the text has characters that cannot be typed</source>
        <translation>%1&#xa0;: le texte a des caractères qui ne peuvent pas être saisis</translation>
    </message>
    <message>
        <source>argument %1 is not UTF-8</source>
        <translation>l’argument %1 n’est pas de l’UTF-8</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is neither yes nor no</source>
        <translation>%1&#xa0;: «&#xa0;%2&#xa0;» n’est ni yes ni no</translation>
    </message>
    <message>
        <source>The form cannot be used</source>
        <translation>Le formulaire n’est pas utilisable</translation>
    </message>
    <message>
        <source>there is no display for a window; --help tells what goes without one</source>
        <translation>il n’y a pas d’écran pour une fenêtre&#xa0;; --help dit ce qui marche sans</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Poteau</translation>
    </message>
    <message>
        <source>Beam</source>
        <translation>Poutre</translation>
    </message>
    <message>
        <source>Rafter</source>
        <translation>Arbalétrier</translation>
    </message>
    <message>
        <source>Brace</source>
        <translation>Contreventement</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>Roller</source>
        <translation>Simple</translation>
    </message>
    <message>
        <source>Pinned</source>
        <translation>Articulé</translation>
    </message>
    <message>
        <source>Fixed</source>
        <translation>Encastré</translation>
    </message>
    <message>
        <source>Vertical, per length</source>
        <translation>Verticale, par longueur de barre</translation>
    </message>
    <message>
        <source>Vertical, per plan length</source>
        <translation>Verticale, par longueur projetée</translation>
    </message>
    <message>
        <source>Normal to the member</source>
        <translation>Perpendiculaire à la barre</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Cross section</source>
        <translation>Section</translation>
    </message>
    <message>
        <source>Material</source>
        <translation>Matériau</translation>
    </message>
    <message>
        <source>Length offset</source>
        <translation>Correction de longueur</translation>
    </message>
    <message>
        <source>Line load</source>
        <translation>Charge linéique</translation>
    </message>
    <message>
        <source>Load direction</source>
        <translation>Direction de la charge</translation>
    </message>
    <message>
        <source>Moment</source>
        <translation>Moment</translation>
    </message>
    <message>
        <source>Temperature difference</source>
        <translation>Différence de température</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Rotation</translation>
    </message>
    <message>
        <source>Thickness</source>
        <translation>Épaisseur</translation>
    </message>
    <message>
        <source>Elastic modulus</source>
        <translation>Module d’élasticité</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Appui</translation>
    </message>
    <message>
        <source>Hinge at start</source>
        <translation>Articulation à l’origine</translation>
    </message>
    <message>
        <source>Hinge at end</source>
        <translation>Articulation à l’extrémité</translation>
    </message>
    <message>
        <source>Bedded foundation</source>
        <translation>Appui élastique continu</translation>
    </message>
    <message>
        <source>Bedding modulus</source>
        <translation>Module de réaction</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Remarque</translation>
    </message>
    <message>
        <source>Drawing</source>
        <translation>Plan</translation>
    </message>
    <message>
        <source>a member needs a name</source>
        <translation>une barre doit avoir un nom</translation>
    </message>
    <message>
        <source>there is a member &quot;%1&quot; already</source>
        <translation>il y a déjà une barre «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>this is no finite number</source>
        <translation>ce n’est pas un nombre fini</translation>
    </message>
    <message>
        <source>the model has no cross section &quot;%1&quot;</source>
        <translation>le modèle n’a pas de section «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>the model has no material &quot;%1&quot;</source>
        <translation>le modèle n’a pas de matériau «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no such choice</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un choix possible</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Longueur</translation>
    </message>
    <message>
        <source>The distance of the nodes and the length offset</source>
        <translation>Distance entre les nœuds et correction de longueur</translation>
    </message>
    <message>
        <source>Mass</source>
        <translation>Masse</translation>
    </message>
    <message>
        <source>Area, length and density</source>
        <translation>Aire, longueur et masse volumique</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>Charge</translation>
    </message>
    <message>
        <source>The resultant of the line load</source>
        <translation>Résultante de la charge linéique</translation>
    </message>
    <message>
        <source>Span moment</source>
        <translation>Moment en travée</translation>
    </message>
    <message>
        <source>Of the line load on the member as a simple beam</source>
        <translation>Sous la charge linéique, barre sur deux appuis simples</translation>
    </message>
    <message>
        <source>Thermal curvature</source>
        <translation>Courbure thermique</translation>
    </message>
    <message>
        <source>Of the temperature difference on the free member</source>
        <translation>Sous la différence de température, barre libre de se déformer</translation>
    </message>
    <message>
        <source>Buckling load</source>
        <translation>Charge de flambement</translation>
    </message>
    <message>
        <source>In the plane, with hinged ends</source>
        <translation>Dans le plan, à extrémités articulées</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Affichage</translation>
    </message>
    <message>
        <source>U&amp;nits </source>
        <translation>U&amp;nités </translation>
    </message>
    <message>
        <source>a name must not be empty</source>
        <translation>un nom ne doit pas être vide</translation>
    </message>
    <message>
        <source>the name &quot;%1&quot; is taken already</source>
        <translation>le nom «&#xa0;%1&#xa0;» est déjà pris</translation>
    </message>
    <message>
        <source>the model has no node &quot;%1&quot;</source>
        <translation>le modèle n’a pas de nœud «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>a member needs two different nodes</source>
        <translation>une barre doit avoir deux nœuds différents</translation>
    </message>
    <message>
        <source>minus %1</source>
        <translation>moins %1</translation>
    </message>
    <message>
        <source>, limited to %1</source>
        <translation>, limité à %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no finite number</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un nombre fini</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: decimals stand behind a point</source>
        <translation>«&#xa0;%1&#xa0;»&#xa0;: les décimales suivent un point</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not understood as a number with a unit such as %2</source>
        <translation>«&#xa0;%1&#xa0;» ne se lit pas comme un nombre avec une unité telle que %2</translation>
    </message>
    <message>
        <source>from %1 to %2</source>
        <translation>de %1 à %2</translation>
    </message>
    <message>
        <source>at least %1</source>
        <translation>au moins %1</translation>
    </message>
    <message>
        <source>at most %1</source>
        <translation>au plus %1</translation>
    </message>
    <message>
        <source>en</source>
        <comment>the code of the language of these texts</comment>
        <translation>fr</translation>
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
        <translation>Usage&#xa0;: frame_editor [MODÈLE.json] [options]

Sans option du second groupe, une fenêtre s’ouvre sur le modèle. Avec l’une d’elles, le programme
écrit dans la même fenêtre sans la montrer, dit ce qui en résulte et se termine.

  --select NOMS        sélectionne des barres, noms séparés par des virgules&#xa0;; répétable
  --select-all         sélectionne toutes les barres
  --units COLONNE      unités, 0 à 9&#xa0;: 0 à 7 métriques, 8 et 9 anglo-saxonnes
  --form FICHIER       le formulaire des propriétés, à la place de celui qui est fourni

  --set PROPRIÉTÉ=TEXTE  saisit TEXTE dans le champ des barres sélectionnées&#xa0;; répétable
  --list               affiche les barres, celles qui sont sélectionnées s’il y en a
  --print              affiche leurs propriétés, après toutes les saisies
  --save FICHIER       écrit le modèle
  --screenshot FICHIER écrit une image de la fenêtre

Les choix, yes et no s’écrivent comme dans un fichier de modèle ou en anglais, quelle que soit la
langue de la fenêtre. Un texte refusé termine le programme avec le code 1, et rien
n’est écrit.
</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no whole number from %2 to %3</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas un nombre entier de %2 à %3</translation>
    </message>
    <message>
        <source>Rigid link</source>
        <translation>Liaison rigide</translation>
    </message>
    <message>
        <source>Divisions</source>
        <translation>Divisions</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2 is needed here</source>
        <translation>un nombre entier de %1 à %2 est attendu ici</translation>
    </message>
    <message>
        <source>this is longer than %1 characters</source>
        <translation>ceci dépasse %1 caractères</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot stand here</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas figurer ici</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither yes nor no</source>
        <translation>«&#xa0;%1&#xa0;» n’est ni yes ni no</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Start node</source>
        <translation>Nœud origine</translation>
    </message>
    <message>
        <source>End node</source>
        <translation>Nœud extrémité</translation>
    </message>
    <message>
        <source>%1 is less than %2</source>
        <translation>%1 est inférieur à %2</translation>
    </message>
    <message>
        <source>%1 is more than %2</source>
        <translation>%1 est supérieur à %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not in the list</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas dans la liste</translation>
    </message>
    <message>
        <source>a member needs two nodes, a section and a material</source>
        <translation>une barre doit avoir deux nœuds, une section et un matériau</translation>
    </message>
    <message>
        <source>a rigid link has no such value</source>
        <translation>une liaison rigide n’a pas cette valeur</translation>
    </message>
    <message>
        <source>this cannot be empty</source>
        <translation>ceci ne peut pas être vide</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no place here</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas de place ici</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not of the form MEMBER.COLUMN=...</source>
        <translation>%1&#xa0;: «&#xa0;%2&#xa0;» n’est pas de la forme BARRE.COLONNE=...</translation>
    </message>
    <message>
        <source>
In the table of members, after the fields and in the order given; may be repeated:
  --cell MEMBER.COLUMN=TEXT   types TEXT into a cell
  --paste MEMBER.COLUMN=FILE  pastes the text of FILE with that cell as its corner;
                       without a member the row below the last one is meant
</source>
        <translation>
Dans le tableau des barres, après les champs et dans l’ordre donné&#xa0;; répétable&#xa0;:
  --cell BARRE.COLONNE=TEXTE     saisit TEXTE dans une cellule
  --paste BARRE.COLONNE=FICHIER  colle le texte de FICHIER avec cette cellule pour coin&#xa0;;
                       sans barre, la ligne sous la dernière
</translation>
    </message>
    <message>
        <source>the table has no column &quot;%1&quot;</source>
        <translation>le tableau n’a pas de colonne «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>%1.%2: unchanged</source>
        <translation>%1.%2: inchangé</translation>
    </message>
    <message>
        <source>%1: this member has no such cell</source>
        <translation>%1&#xa0;: cette barre n’a pas cette cellule</translation>
    </message>
    <message>
        <source>Deletion of %1</source>
        <translation>Suppression de %1</translation>
    </message>
    <message numerus="yes">
        <source>Deletion of %n members</source>
        <translation>
            <numerusform>Suppression de %n barre</numerusform>
            <numerusform>Suppression de %n barres</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> and %n more</source>
        <translation>
            <numerusform> et %n autre</numerusform>
            <numerusform> et %n autres</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>frame_editor::Canvas</name>
    <message>
        <source>Elevation</source>
        <translation>Élévation</translation>
    </message>
    <message>
        <source>Unnamed</source>
        <translation>Sans nom</translation>
    </message>
    <message>
        <source>%1x %2   y %3</source>
        <translation>%1x %2   y %3</translation>
    </message>
    <message>
        <source>rulers in metres</source>
        <translation>règles en mètres</translation>
    </message>
    <message>
        <source>%1: written</source>
        <translation>%1&#xa0;: pris en compte</translation>
    </message>
</context>
<context>
    <name>frame_editor::CanvasOverview</name>
    <message>
        <source>Overview</source>
        <translation>Vue d’ensemble</translation>
    </message>
</context>
<context>
    <name>frame_editor::Document</name>
    <message>
        <source>two members cannot have the same name</source>
        <translation>deux barres ne peuvent pas avoir le même nom</translation>
    </message>
    <message>
        <source>this is no finite number</source>
        <translation>ce n’est pas un nombre fini</translation>
    </message>
    <message>
        <source>a member needs two different nodes</source>
        <translation>une barre doit avoir deux nœuds différents</translation>
    </message>
</context>
<context>
    <name>frame_editor::Form</name>
    <message>
        <source>All properties</source>
        <translation>Toutes les propriétés</translation>
    </message>
    <message>
        <source>Bedded foundation</source>
        <translation>Appui élastique continu</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Direction</translation>
    </message>
    <message>
        <source>Ends</source>
        <translation>Extrémités</translation>
    </message>
    <message>
        <source>Loads</source>
        <translation>Charges</translation>
    </message>
    <message>
        <source>Loads alone</source>
        <translation>Charges seules</translation>
    </message>
    <message>
        <source>Member</source>
        <translation>Barre</translation>
    </message>
    <message>
        <source>Moment at the start</source>
        <translation>Moment à l’origine</translation>
    </message>
    <message>
        <source>Remarks</source>
        <translation>Remarques</translation>
    </message>
</context>
<context>
    <name>frame_editor::MainWindow</name>
    <message>
        <source>Tools</source>
        <translation>Outils</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Prêt</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>&amp;Ouvrir...</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Enregistrer</translation>
    </message>
    <message>
        <source>Save &amp;as...</source>
        <translation>Enregistrer &amp;sous...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Annuler&#xa0;: %1</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Rétablir&#xa0;: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>&amp;Fit to window</source>
        <translation>&amp;Ajuster à la fenêtre</translation>
    </message>
    <message>
        <source>Form &quot;%1&quot;</source>
        <translation>Formulaire «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>&amp;Open a form...</source>
        <translation>&amp;Ouvrir un formulaire...</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Unités</translation>
    </message>
    <message>
        <source>The units of length, thickness, load and elastic modulus</source>
        <translation>Les unités de longueur, d’épaisseur, de charge et de module d’élasticité</translation>
    </message>
    <message>
        <source>Members</source>
        <translation>Barres</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Propriétés</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Résultats</translation>
    </message>
    <message>
        <source>Overview</source>
        <translation>Vue d’ensemble</translation>
    </message>
    <message>
        <source>The model cannot be opened</source>
        <translation>Le modèle ne peut pas être ouvert</translation>
    </message>
    <message>
        <source>%1 opened</source>
        <translation>%1 ouvert</translation>
    </message>
    <message>
        <source>The form cannot be used</source>
        <translation>Le formulaire n’est pas utilisable</translation>
    </message>
    <message>
        <source>Form: %1</source>
        <translation>Formulaire&#xa0;: %1</translation>
    </message>
    <message>
        <source>Open a form</source>
        <translation>Ouvrir un formulaire</translation>
    </message>
    <message>
        <source>Forms (*.json)</source>
        <translation>Formulaires (*.json)</translation>
    </message>
    <message>
        <source>Open a model</source>
        <translation>Ouvrir un modèle</translation>
    </message>
    <message>
        <source>Frame models (*.json)</source>
        <translation>Modèles de portiques (*.json)</translation>
    </message>
    <message>
        <source>Save the model</source>
        <translation>Enregistrer le modèle</translation>
    </message>
    <message>
        <source>The model cannot be saved</source>
        <translation>Le modèle ne peut pas être enregistré</translation>
    </message>
    <message>
        <source>%1 saved</source>
        <translation>%1 enregistré</translation>
    </message>
    <message>
        <source>Unsaved changes</source>
        <translation>Modifications non enregistrées</translation>
    </message>
    <message>
        <source>The model has changes that are not saved.</source>
        <translation>Le modèle a des modifications qui ne sont pas enregistrées.</translation>
    </message>
    <message>
        <source>Unnamed</source>
        <translation>Sans nom</translation>
    </message>
    <message>
        <source>%1[*] - Frame editor</source>
        <translation>%1[*] - Éditeur de portiques</translation>
    </message>
    <message>
        <source>Table of members</source>
        <translation>Tableau des barres</translation>
    </message>
    <message>
        <source>There is no member &quot;%1&quot;</source>
        <translation>Il n’y a pas de barre «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <translation>%1&#xa0;; %2</translation>
    </message>
    <message>
        <source>%1: undone</source>
        <translation>%1&#xa0;: annulé</translation>
    </message>
    <message>
        <source>%1: redone</source>
        <translation>%1&#xa0;: rétabli</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Supprimer</translation>
    </message>
    <message>
        <source>&amp;Delete %1</source>
        <translation>&amp;Supprimer %1</translation>
    </message>
    <message numerus="yes">
        <source>&amp;Delete %n members</source>
        <translation>
            <numerusform>&amp;Supprimer %n barre</numerusform>
            <numerusform>&amp;Supprimer %n barres</numerusform>
        </translation>
    </message>
    <message>
        <source>nothing is deleted</source>
        <translation>rien n’est supprimé</translation>
    </message>
    <message>
        <source>%1: done</source>
        <translation>%1&#xa0;: fait</translation>
    </message>
    <message>
        <source>nodes that stay without a member: %1</source>
        <translation>nœuds qui restent sans barre&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>frame_editor::MemberList</name>
    <message>
        <source>Members</source>
        <translation>Barres</translation>
    </message>
</context>
<context>
    <name>frame_editor::MemberTable</name>
    <message>
        <source>Table of members</source>
        <translation>Tableau des barres</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Coupe</translation>
    </message>
    <message>
        <source>Clearing</source>
        <translation>Effacement</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Collage</translation>
    </message>
    <message>
        <source>a member needs two nodes, a section and a material</source>
        <translation>une barre doit avoir deux nœuds, une section et un matériau</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Co&amp;uper</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>C&amp;oller</translation>
    </message>
    <message>
        <source>C&amp;lear cells</source>
        <translation>&amp;Effacer les cellules</translation>
    </message>
</context>
<context>
    <name>frame_editor::MemberTableModel</name>
    <message>
        <source>Show</source>
        <translation>Voir</translation>
    </message>
    <message>
        <source>A rigid link has no such value</source>
        <translation>Une liaison rigide n’a pas cette valeur</translation>
    </message>
    <message>
        <source>A name makes a new member</source>
        <translation>Un nom crée une nouvelle barre</translation>
    </message>
    <message>
        <source>Zooms to %1</source>
        <translation>Zoome sur %1</translation>
    </message>
    <message>
        <source>Zoom to %1</source>
        <translation>Zoomer sur %1</translation>
    </message>
    <message>
        <source>%1: written; %2</source>
        <translation>%1&#xa0;: pris en compte&#xa0;; %2</translation>
    </message>
    <message>
        <source>%1: written</source>
        <translation>%1&#xa0;: pris en compte</translation>
    </message>
    <message>
        <source>New member %1</source>
        <translation>Nouvelle barre %1</translation>
    </message>
    <message numerus="yes">
        <source>%n new members</source>
        <translation>
            <numerusform>%n nouvelle barre</numerusform>
            <numerusform>%n nouvelles barres</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n cells</source>
        <translation>
            <numerusform>%1 de %n cellule</numerusform>
            <numerusform>%1 de %n cellules</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>New member</source>
        <translation>Nouvelle barre</translation>
    </message>
    <message>
        <source>column %1</source>
        <translation>colonne %1</translation>
    </message>
    <message>
        <source>%1, %2: %3</source>
        <translation>%1, %2&#xa0;: %3</translation>
    </message>
    <message>
        <source>%1; this cell was left as it is</source>
        <translation>%1&#xa0;; cette cellule est restée telle quelle</translation>
    </message>
    <message numerus="yes">
        <source>%n cells were left as they are; %1</source>
        <translation>
            <numerusform>%n cellule est restée telle quelle&#xa0;; %1</numerusform>
            <numerusform>%n cellules sont restées telles quelles&#xa0;; %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>frame_editor::PropertyField</name>
    <message>
        <source>&quot;%1&quot; cannot stand here</source>
        <translation>«&#xa0;%1&#xa0;» ne peut pas figurer ici</translation>
    </message>
    <message>
        <source>%1: limited to %2, &quot;%3&quot; was typed</source>
        <translation>%1&#xa0;: limité à %2, saisi&#xa0;: «&#xa0;%3&#xa0;»</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not in the list</source>
        <translation>«&#xa0;%1&#xa0;» n’est pas dans la liste</translation>
    </message>
    <message>
        <source>%1: %2; nothing is written</source>
        <translation>%1&#xa0;: %2&#xa0;; rien n’est modifié</translation>
    </message>
    <message>
        <source>A rigid link has no such value</source>
        <translation>Une liaison rigide n’a pas cette valeur</translation>
    </message>
</context>
<context>
    <name>frame_editor::PropertyPanel</name>
    <message>
        <source>Properties</source>
        <translation>Propriétés</translation>
    </message>
    <message>
        <source>The members differ:</source>
        <translation>Les barres diffèrent&#xa0;:</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Toutes</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucune</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>No member is selected</source>
        <translation>Aucune barre n’est sélectionnée</translation>
    </message>
    <message>
        <source>Member %1</source>
        <translation>Barre %1</translation>
    </message>
    <message numerus="yes">
        <source>%n members: %1</source>
        <translation>
            <numerusform>%n barre&#xa0;: %1</numerusform>
            <numerusform>%n barres&#xa0;: %1</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: written</source>
        <translation>%1&#xa0;: pris en compte</translation>
    </message>
</context>
<context>
    <name>frame_editor::ResultsView</name>
    <message>
        <source>none</source>
        <translation>aucune</translation>
    </message>
</context>
</TS>
