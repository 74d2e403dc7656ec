<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>Engine</name>
    <message>
        <source>%1: not read, %2</source>
        <translation>%1 : non lu, %2</translation>
    </message>
    <message>
        <source>%1: not understood, %2</source>
        <translation>%1 : non compris, %2</translation>
    </message>
    <message>
        <source>%1: only partly read, %2</source>
        <translation>%1 : lu en partie seulement, %2</translation>
    </message>
    <message>
        <source>Who may watch</source>
        <translation>Qui peut regarder</translation>
    </message>
    <message>
        <source>What starts by itself</source>
        <translation>Ce qui démarre tout seul</translation>
    </message>
    <message>
        <source>Remote access and management</source>
        <translation>Accès à distance et gestion</translation>
    </message>
    <message>
        <source>Sees what you type</source>
        <translation>Voit ce que vous tapez</translation>
    </message>
    <message>
        <source>A program that is allowed here can notice every key you press, passwords included. To take it back, open System Settings, Privacy &amp; Security, Accessibility or Input Monitoring on the Mac and switch it off.</source>
        <translation>Un programme autorisé ici peut remarquer chaque touche que vous pressez, mots de passe compris. Pour revenir là-dessus, ouvrez sur le Mac Réglages Système, Confidentialité et sécurité, Accessibilité ou Surveillance de l’entrée, et désactivez-le.</translation>
    </message>
    <message>
        <source>Sees the screen</source>
        <translation>Voit l’écran</translation>
    </message>
    <message>
        <source>A program that is allowed here can take pictures of all that is on the screen. To take it back, open System Settings, Privacy &amp; Security, Screen Recording on the Mac and switch it off.</source>
        <translation>Un programme autorisé ici peut photographier tout ce qui est à l’écran. Pour revenir là-dessus, ouvrez sur le Mac Réglages Système, Confidentialité et sécurité, Enregistrement de l’écran, et désactivez-le.</translation>
    </message>
    <message>
        <source>Reads every file</source>
        <translation>Lit tous les fichiers</translation>
    </message>
    <message>
        <source>A program that is allowed here can open all files, mail and messages too. To take it back, open System Settings, Privacy &amp; Security, Full Disk Access on the Mac and switch it off.</source>
        <translation>Un programme autorisé ici peut ouvrir tous les fichiers, courriels et messages compris. Pour revenir là-dessus, ouvrez sur le Mac Réglages Système, Confidentialité et sécurité, Accès complet au disque, et désactivez-le.</translation>
    </message>
    <message>
        <source>Listens or watches</source>
        <translation>Écoute ou regarde</translation>
    </message>
    <message>
        <source>A program that is allowed here can use the microphone or the camera. To take it back, open System Settings, Privacy &amp; Security, Microphone or Camera on the Mac and switch it off.</source>
        <translation>Un programme autorisé ici peut se servir du micro ou de la caméra. Pour revenir là-dessus, ouvrez sur le Mac Réglages Système, Confidentialité et sécurité, Microphone ou Appareil photo, et désactivez-le.</translation>
    </message>
    <message>
        <source>Acts for you</source>
        <translation>Agit à votre place</translation>
    </message>
    <message>
        <source>A program that is allowed here can press keys and click as if it were you. To take it back, open System Settings, Privacy &amp; Security, Accessibility on the Mac and switch it off.</source>
        <translation>Un programme autorisé ici peut presser des touches et cliquer comme si c’était vous. Pour revenir là-dessus, ouvrez sur le Mac Réglages Système, Confidentialité et sécurité, Accessibilité, et désactivez-le.</translation>
    </message>
    <message>
        <source>Steers other programs</source>
        <translation>Pilote d’autres programmes</translation>
    </message>
    <message>
        <source>A program that is allowed here can have another one do things, such as open a page or read mail. To take it back, open System Settings, Privacy &amp; Security, Automation on the Mac and switch it off.</source>
        <translation>Un programme autorisé ici peut faire agir un autre programme, par exemple ouvrir une page ou lire les courriels. Pour revenir là-dessus, ouvrez sur le Mac Réglages Système, Confidentialité et sécurité, Automatisation, et désactivez-le.</translation>
    </message>
    <message>
        <source>Other permissions</source>
        <translation>Autres autorisations</translation>
    </message>
    <message>
        <source>These programs asked for single things, such as contacts, photos or one folder. To take one back, look for its name in System Settings, Privacy &amp; Security on the Mac.</source>
        <translation>Ces programmes ont demandé des choses précises : contacts, photos ou un dossier. Pour en retirer une, cherchez son nom sur le Mac dans Réglages Système, Confidentialité et sécurité.</translation>
    </message>
    <message>
        <source>Launch agents</source>
        <translation>Agents de lancement</translation>
    </message>
    <message>
        <source>These run while somebody is logged in, mostly unseen. Ask whoever looks after the Mac about those you do not know before you change anything.</source>
        <translation>Ils tournent tant que quelqu’un est connecté, le plus souvent sans être vus. Avant de changer quoi que ce soit, demandez à la personne qui s’occupe du Mac ce que sont ceux que vous ne connaissez pas.</translation>
    </message>
    <message>
        <source>Launch daemons</source>
        <translation>Démons de lancement</translation>
    </message>
    <message>
        <source>These run from the Mac&apos;s start on, whoever is logged in. Ask whoever looks after the Mac about those you do not know before you change anything.</source>
        <translation>Ils tournent dès le démarrage du Mac, quelle que soit la personne connectée. Avant de changer quoi que ce soit, demandez à la personne qui s’occupe du Mac ce que sont ceux que vous ne connaissez pas.</translation>
    </message>
    <message>
        <source>Background items</source>
        <translation>Éléments d’arrière-plan</translation>
    </message>
    <message>
        <source>The system keeps this list of what may run in the background. On the Mac it is in System Settings, General, Login Items.</source>
        <translation>Le système tient cette liste de ce qui peut tourner en arrière-plan. Sur le Mac, elle est dans Réglages Système, Général, Ouverture.</translation>
    </message>
    <message>
        <source>Login items</source>
        <translation>Éléments d’ouverture</translation>
    </message>
    <message>
        <source>These are opened when somebody logs in. On the Mac they are in System Settings, General, Login Items.</source>
        <translation>Ils s’ouvrent quand quelqu’un se connecte. Sur le Mac, ils sont dans Réglages Système, Général, Ouverture.</translation>
    </message>
    <message>
        <source>Login and logout hooks</source>
        <translation>Commandes à la connexion et à la déconnexion</translation>
    </message>
    <message>
        <source>These run as the Mac&apos;s administrator at each login or logout, and hardly anything honest still uses them. Ask whoever looks after the Mac who set them.</source>
        <translation>Elles s’exécutent avec les droits d’administration à chaque connexion ou déconnexion, et presque rien d’honnête ne s’en sert encore. Demandez à la personne qui s’occupe du Mac qui les a mises en place.</translation>
    </message>
    <message>
        <source>Timed commands</source>
        <translation>Commandes programmées</translation>
    </message>
    <message>
        <source>These run at set times without being asked. Ask whoever looks after the Mac about those you do not know.</source>
        <translation>Elles s’exécutent à heures fixes sans rien demander. Demandez à la personne qui s’occupe du Mac ce que sont celles que vous ne connaissez pas.</translation>
    </message>
    <message>
        <source>Rules of the event monitor</source>
        <translation>Règles du moniteur d’événements</translation>
    </message>
    <message>
        <source>These run a command when something happens, such as a start. Hardly anything honest uses them: ask who set them.</source>
        <translation>Elles exécutent une commande quand quelque chose se produit, un démarrage par exemple. Presque rien d’honnête ne s’en sert : demandez qui les a mises en place.</translation>
    </message>
    <message>
        <source>Scripts of the system</source>
        <translation>Scripts du système</translation>
    </message>
    <message>
        <source>These are run by the system itself at its start or each day, week or month. A Mac comes with some of them.</source>
        <translation>Le système les exécute lui-même au démarrage ou chaque jour, semaine ou mois. Un Mac en a quelques-uns d’origine.</translation>
    </message>
    <message>
        <source>Start-up items</source>
        <translation>Éléments de démarrage</translation>
    </message>
    <message>
        <source>This is how very old programs started. A Mac of today ignores them.</source>
        <translation>C’est ainsi que démarraient de très vieux programmes. Un Mac d’aujourd’hui les ignore.</translation>
    </message>
    <message>
        <source>Plug-ins of the login window</source>
        <translation>Modules de la fenêtre de connexion</translation>
    </message>
    <message>
        <source>These take part when somebody logs in and could see a password. Companies use them; ask who put them there.</source>
        <translation>Ils interviennent quand quelqu’un se connecte et pourraient voir un mot de passe. Des entreprises s’en servent ; demandez qui les a installés.</translation>
    </message>
    <message>
        <source>Kernel and system extensions</source>
        <translation>Extensions du noyau et du système</translation>
    </message>
    <message>
        <source>These become a part of the system and see more than a program does. On the Mac they are in System Settings, General, Login Items &amp; Extensions.</source>
        <translation>Elles font corps avec le système et voient plus qu’un programme. Sur le Mac, elles sont dans Réglages Système, Général, Ouverture et extensions.</translation>
    </message>
    <message>
        <source>Privileged helpers</source>
        <translation>Assistants privilégiés</translation>
    </message>
    <message>
        <source>These do for an application what needs the administrator&apos;s rights. Most belong to an application of the same name.</source>
        <translation>Ils font pour une application ce qui demande les droits d’administration. La plupart vont avec une application du même nom.</translation>
    </message>
    <message>
        <source>Files that a terminal runs</source>
        <translation>Fichiers qu’un terminal exécute</translation>
    </message>
    <message>
        <source>Commands in these files run whenever a terminal is opened. Most Macs have some; only their names are listed here.</source>
        <translation>Les commandes de ces fichiers s’exécutent à chaque ouverture d’un terminal. La plupart des Mac en ont ; seuls leurs noms figurent ici.</translation>
    </message>
    <message>
        <source>Ways in</source>
        <translation>Portes d’entrée</translation>
    </message>
    <message>
        <source>Somebody who knows a password or holds a key could use these from elsewhere. On the Mac they are switched in System Settings, General, Sharing.</source>
        <translation>Quelqu’un qui connaît un mot de passe ou détient une clé pourrait s’en servir d’ailleurs. Sur le Mac, ils se règlent dans Réglages Système, Général, Partage.</translation>
    </message>
    <message>
        <source>Management</source>
        <translation>Gestion</translation>
    </message>
    <message>
        <source>A company, a school or a person may manage this Mac and see much of it. On the Mac look in System Settings, General, Device Management.</source>
        <translation>Une entreprise, une école ou une personne gère peut-être ce Mac et en voit beaucoup. Sur le Mac, regardez dans Réglages Système, Général, Gestion des appareils.</translation>
    </message>
    <message>
        <source>Network</source>
        <translation>Réseau</translation>
    </message>
    <message>
        <source>Settings here can lead what you do on the network past somebody else. On the Mac they are in System Settings, Network.</source>
        <translation>Ces réglages peuvent faire passer par quelqu’un d’autre ce que vous faites sur le réseau. Sur le Mac, ils sont dans Réglages Système, Réseau.</translation>
    </message>
    <message>
        <source>Programs for remote access</source>
        <translation>Programmes d’accès à distance</translation>
    </message>
    <message>
        <source>These well-known programs let somebody see and use the screen from elsewhere, and start by themselves. If you did not set one up, ask who did.</source>
        <translation>Ces programmes bien connus permettent à quelqu’un de voir et d’utiliser l’écran d’ailleurs, et ils démarrent tout seuls. Si vous n’en avez installé aucun, demandez qui l’a fait.</translation>
    </message>
    <message>
        <source>keys and mouse</source>
        <translation>clavier et souris</translation>
    </message>
    <message>
        <source>control of programs</source>
        <translation>contrôle de programmes</translation>
    </message>
    <message>
        <source>the screen</source>
        <translation>l’écran</translation>
    </message>
    <message>
        <source>the screen, from elsewhere</source>
        <translation>l’écran, à distance</translation>
    </message>
    <message>
        <source>all files</source>
        <translation>tous les fichiers</translation>
    </message>
    <message>
        <source>files of the administration</source>
        <translation>fichiers d’administration</translation>
    </message>
    <message>
        <source>the microphone</source>
        <translation>le microphone</translation>
    </message>
    <message>
        <source>the camera</source>
        <translation>la caméra</translation>
    </message>
    <message>
        <source>the sound of other programs</source>
        <translation>le son d’autres programmes</translation>
    </message>
    <message>
        <source>pressing keys and clicking</source>
        <translation>presser des touches et cliquer</translation>
    </message>
    <message>
        <source>another program</source>
        <translation>un autre programme</translation>
    </message>
    <message>
        <source>contacts</source>
        <translation>contacts</translation>
    </message>
    <message>
        <source>some contacts</source>
        <translation>quelques contacts</translation>
    </message>
    <message>
        <source>calendar</source>
        <translation>calendrier</translation>
    </message>
    <message>
        <source>reminders</source>
        <translation>rappels</translation>
    </message>
    <message>
        <source>photos</source>
        <translation>photos</translation>
    </message>
    <message>
        <source>adding photos</source>
        <translation>ajout de photos</translation>
    </message>
    <message>
        <source>the place where the Mac is</source>
        <translation>l’endroit où se trouve le Mac</translation>
    </message>
    <message>
        <source>recognising speech</source>
        <translation>reconnaissance vocale</translation>
    </message>
    <message>
        <source>music and films</source>
        <translation>musique et films</translation>
    </message>
    <message>
        <source>movement</source>
        <translation>mouvement</translation>
    </message>
    <message>
        <source>the home&apos;s devices</source>
        <translation>les appareils de la maison</translation>
    </message>
    <message>
        <source>whether you want no calls</source>
        <translation>si vous ne voulez pas être dérangé</translation>
    </message>
    <message>
        <source>following you over programs</source>
        <translation>vous suivre d’un programme à l’autre</translation>
    </message>
    <message>
        <source>the Desktop folder</source>
        <translation>le dossier Bureau</translation>
    </message>
    <message>
        <source>the Documents folder</source>
        <translation>le dossier Documents</translation>
    </message>
    <message>
        <source>the Downloads folder</source>
        <translation>le dossier Téléchargements</translation>
    </message>
    <message>
        <source>disks in the network</source>
        <translation>disques sur le réseau</translation>
    </message>
    <message>
        <source>disks that can be taken away</source>
        <translation>disques amovibles</translation>
    </message>
    <message>
        <source>changing other applications</source>
        <translation>modifier d’autres applications</translation>
    </message>
    <message>
        <source>data of other applications</source>
        <translation>données d’autres applications</translation>
    </message>
    <message>
        <source>files that a service provides</source>
        <translation>fichiers fournis par un service</translation>
    </message>
    <message>
        <source>noticing that files are used</source>
        <translation>remarquer que des fichiers sont utilisés</translation>
    </message>
    <message>
        <source>running programs that the system would not</source>
        <translation>exécuter des programmes que le système refuserait</translation>
    </message>
    <message>
        <source>what all programs do</source>
        <translation>ce que font tous les programmes</translation>
    </message>
    <message>
        <source>iCloud (data of applications)</source>
        <translation>iCloud (données d’applications)</translation>
    </message>
    <message>
        <source>sharing with others</source>
        <translation>partage avec d’autres</translation>
    </message>
    <message>
        <source>denied</source>
        <translation>refusé</translation>
    </message>
    <message>
        <source>allowed</source>
        <translation>autorisé</translation>
    </message>
    <message>
        <source>limited</source>
        <translation>limité</translation>
    </message>
    <message>
        <source>a management profile</source>
        <translation>un profil de gestion</translation>
    </message>
    <message>
        <source>the system</source>
        <translation>le système</translation>
    </message>
    <message>
        <source>on</source>
        <translation>activé</translation>
    </message>
    <message>
        <source>off</source>
        <translation>désactivé</translation>
    </message>
    <message>
        <source>still there</source>
        <translation>encore là</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>absent</translation>
    </message>
    <message>
        <source>whole Mac</source>
        <translation>tous</translation>
    </message>
    <message>
        <source>you</source>
        <translation>vous</translation>
    </message>
    <message>
        <source>not known, in a hidden folder</source>
        <translation>inconnu, dossier caché</translation>
    </message>
    <message>
        <source>not known, in a temporary folder</source>
        <translation>inconnu, dossier temporaire</translation>
    </message>
    <message>
        <source>not known, in the folder shared by all</source>
        <translation>inconnu, dossier partagé</translation>
    </message>
    <message>
        <source>not known, in the home of %1</source>
        <translation>inconnu, dossier de %1</translation>
    </message>
    <message>
        <source>still there, in a hidden folder</source>
        <translation>encore là, dossier caché</translation>
    </message>
    <message>
        <source>still there, in a temporary folder</source>
        <translation>encore là, dossier temporaire</translation>
    </message>
    <message>
        <source>still there, in the folder shared by all</source>
        <translation>encore là, dossier partagé</translation>
    </message>
    <message>
        <source>still there, in the home of %1</source>
        <translation>encore là, dossier de %1</translation>
    </message>
    <message>
        <source>missing, in a hidden folder</source>
        <translation>absent, dossier caché</translation>
    </message>
    <message>
        <source>missing, in a temporary folder</source>
        <translation>absent, dossier temporaire</translation>
    </message>
    <message>
        <source>missing, in the folder shared by all</source>
        <translation>absent, dossier partagé</translation>
    </message>
    <message>
        <source>missing, in the home of %1</source>
        <translation>absent, dossier de %1</translation>
    </message>
    <message>
        <source>you (%1)</source>
        <translation>vous (%1)</translation>
    </message>
    <message>
        <source>the system (%1)</source>
        <translation>le système (%1)</translation>
    </message>
    <message>
        <source>a management profile (%1)</source>
        <translation>un profil de gestion (%1)</translation>
    </message>
    <message>
        <source>not known (%1)</source>
        <translation>inconnu (%1)</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>Decision</source>
        <translation>Décision</translation>
    </message>
    <message>
        <source>What for</source>
        <translation>Pour quoi</translation>
    </message>
    <message>
        <source>Decided by</source>
        <translation>Décidé par</translation>
    </message>
    <message>
        <source>Since</source>
        <translation>Depuis</translation>
    </message>
    <message>
        <source>Whose</source>
        <translation>À qui</translation>
    </message>
    <message>
        <source>On the disk</source>
        <translation>Sur le disque</translation>
    </message>
    <message>
        <source>Path or identifier</source>
        <translation>Chemin ou identifiant</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Source</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>State</source>
        <translation>État</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Quand</translation>
    </message>
    <message>
        <source>As</source>
        <translation>En tant que</translation>
    </message>
    <message>
        <source>Application</source>
        <translation>Application</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Quoi</translation>
    </message>
    <message>
        <source>Detail</source>
        <translation>Détail</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Groupe</translation>
    </message>
    <message>
        <source>This disk holds more than any Mac&apos;s: not all of it is listed.</source>
        <translation>Ce disque contient plus que celui d’aucun Mac : tout n’est pas listé.</translation>
    </message>
    <message>
        <source>reading it took too long</source>
        <translation>la lecture a pris trop de temps</translation>
    </message>
    <message>
        <source>it could not be looked for</source>
        <translation>il n’a pas pu être cherché</translation>
    </message>
    <message>
        <source>it holds more than any Mac&apos;s; the rest was left out</source>
        <translation>il contient plus que celui d’aucun Mac ; le reste a été omis</translation>
    </message>
    <message>
        <source>what was last written to the database and waits here is not read</source>
        <translation>ce qui a été écrit en dernier dans la base et attend ici n’est pas lu</translation>
    </message>
    <message>
        <source>the disk holds more than is read of any</source>
        <translation>le disque contient plus que ce qui est lu de n’importe lequel</translation>
    </message>
    <message>
        <source>it does not begin like one</source>
        <translation>il ne commence pas comme il faut</translation>
    </message>
    <message>
        <source>it is no dictionary</source>
        <translation>ce n’est pas un dictionnaire</translation>
    </message>
    <message>
        <source>it is no list of rules</source>
        <translation>ce n’est pas une liste de règles</translation>
    </message>
    <message>
        <source>it is not understood: %1</source>
        <translation>il n’est pas compris : %1</translation>
    </message>
    <message>
        <source>the database is not understood: %1</source>
        <translation>la base de données n’est pas comprise : %1</translation>
    </message>
    <message>
        <source>the background items are not understood: %1</source>
        <translation>les éléments d’arrière-plan ne sont pas compris : %1</translation>
    </message>
    <message>
        <source>Starts by itself: %1</source>
        <translation>Démarre tout seul : %1</translation>
    </message>
    <message>
        <source>Assigned to an organisation</source>
        <translation>Attribué à une organisation</translation>
    </message>
    <message>
        <source>Configuration profiles are installed</source>
        <translation>Des profils de configuration sont installés</translation>
    </message>
    <message>
        <source>Enrolled with an organisation</source>
        <translation>Inscrit auprès d’une organisation</translation>
    </message>
    <message>
        <source>File of rules for acting as root</source>
        <translation>Fichier de règles pour agir comme root</translation>
    </message>
    <message>
        <source>File sharing</source>
        <translation>Partage de fichiers</translation>
    </message>
    <message>
        <source>Name servers for a domain</source>
        <translation>Serveurs de noms pour un domaine</translation>
    </message>
    <message>
        <source>Remote Apple events</source>
        <translation>Événements Apple distants</translation>
    </message>
    <message>
        <source>Remote login (SSH)</source>
        <translation>Session à distance (SSH)</translation>
    </message>
    <message>
        <source>Remote management</source>
        <translation>Gestion à distance</translation>
    </message>
    <message>
        <source>Screen sharing</source>
        <translation>Partage d’écran</translation>
    </message>
    <message>
        <source>Screen sharing with a password of its own</source>
        <translation>Partage d’écran avec son propre mot de passe</translation>
    </message>
    <message>
        <source>Settings made by a profile</source>
        <translation>Réglages imposés par un profil</translation>
    </message>
    <message>
        <source>Proxy for web pages</source>
        <translation>Proxy pour les pages web</translation>
    </message>
    <message>
        <source>Proxy for secure web pages</source>
        <translation>Proxy pour les pages web sécurisées</translation>
    </message>
    <message>
        <source>Proxy for all connections (SOCKS)</source>
        <translation>Proxy pour toutes les connexions (SOCKS)</translation>
    </message>
    <message>
        <source>Proxy settings from a file</source>
        <translation>Réglages de proxy venant d’un fichier</translation>
    </message>
    <message>
        <source>Keys that may log in</source>
        <translation>Clés autorisées à se connecter</translation>
    </message>
    <message>
        <source>Line of the hosts file</source>
        <translation>Ligne du fichier hosts</translation>
    </message>
    <message>
        <source>Lines of the hosts file</source>
        <translation>Lignes du fichier hosts</translation>
    </message>
    <message>
        <source>Name servers (DNS) set by hand</source>
        <translation>Serveurs de noms (DNS) définis à la main</translation>
    </message>
    <message>
        <source>Remote management: every account may be used</source>
        <translation>Gestion à distance : tout compte peut servir</translation>
    </message>
    <message>
        <source>Remote management: viewers with a password of their own</source>
        <translation>Gestion à distance : visionneurs avec leur propre mot de passe</translation>
    </message>
    <message>
        <source>Remote management: asking for leave to share the screen</source>
        <translation>Gestion à distance : demande d’autorisation pour partager l’écran</translation>
    </message>
    <message>
        <source>Remote management: shown in the menu bar</source>
        <translation>Gestion à distance : affichée dans la barre des menus</translation>
    </message>
    <message numerus="yes">
        <source>%n keys</source>
        <translation>
            <numerusform>%n clé</numerusform>
            <numerusform>%n clés</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n more lines</source>
        <translation>
            <numerusform>%n ligne de plus</numerusform>
            <numerusform>%n lignes de plus</numerusform>
        </translation>
    </message>
    <message>
        <source>when loaded</source>
        <translation>au chargement</translation>
    </message>
    <message>
        <source>kept running</source>
        <translation>maintenu en marche</translation>
    </message>
    <message>
        <source>kept running under conditions</source>
        <translation>maintenu en marche sous conditions</translation>
    </message>
    <message>
        <source>when asked for</source>
        <translation>à la demande</translation>
    </message>
    <message>
        <source>when a disk is mounted</source>
        <translation>quand un disque est monté</translation>
    </message>
    <message>
        <source>at login</source>
        <translation>à la connexion</translation>
    </message>
    <message>
        <source>at every login</source>
        <translation>à chaque connexion</translation>
    </message>
    <message>
        <source>at every logout</source>
        <translation>à chaque déconnexion</translation>
    </message>
    <message>
        <source>every minute</source>
        <translation>chaque minute</translation>
    </message>
    <message numerus="yes">
        <source>every %n seconds</source>
        <translation>
            <numerusform>chaque seconde</numerusform>
            <numerusform>toutes les %n secondes</numerusform>
        </translation>
    </message>
    <message>
        <source>at the event %1</source>
        <translation>à l’événement %1</translation>
    </message>
    <message>
        <source>when %1 changes</source>
        <translation>quand %1 change</translation>
    </message>
    <message>
        <source>while something lies in %1</source>
        <translation>tant qu’il y a quelque chose dans %1</translation>
    </message>
    <message>
        <source>switched off for %1</source>
        <translation>désactivé pour %1</translation>
    </message>
    <message>
        <source>switched on for %1</source>
        <translation>activé pour %1</translation>
    </message>
    <message>
        <source>%1 (hidden)</source>
        <translation>%1 (caché)</translation>
    </message>
    <message>
        <source>at %1</source>
        <translation>à %1</translation>
    </message>
    <message>
        <source>Google Chrome extensions</source>
        <translation>Extensions de Google Chrome</translation>
    </message>
    <message>
        <source>Firefox add-ons</source>
        <translation>Modules de Firefox</translation>
    </message>
    <message>
        <source>Safari extensions</source>
        <translation>Extensions de Safari</translation>
    </message>
    <message>
        <source>Application support</source>
        <translation>Données d’applications</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Applications</translation>
    </message>
    <message>
        <source>What extensions may do</source>
        <translation>Ce que les extensions peuvent faire</translation>
    </message>
    <message>
        <source>reads and changes all web sites</source>
        <translation>lit et modifie tous les sites web</translation>
    </message>
    <message>
        <source>talks to programs on this Mac</source>
        <translation>parle avec des programmes de ce Mac</translation>
    </message>
    <message>
        <source>controls pages as a debugger does</source>
        <translation>contrôle les pages comme un débogueur</translation>
    </message>
    <message>
        <source>redirects all traffic</source>
        <translation>redirige tout le trafic</translation>
    </message>
    <message>
        <source>switches other extensions on and off</source>
        <translation>active et désactive d’autres extensions</translation>
    </message>
    <message>
        <source>reads and sets cookies</source>
        <translation>lit et écrit les cookies</translation>
    </message>
    <message>
        <source>reads the history</source>
        <translation>lit l’historique</translation>
    </message>
    <message>
        <source>sees the addresses and titles of all tabs</source>
        <translation>voit l’adresse et le titre de tous les onglets</translation>
    </message>
    <message>
        <source>sees each page that is opened</source>
        <translation>voit chaque page ouverte</translation>
    </message>
    <message>
        <source>sees what pages load</source>
        <translation>voit ce que les pages chargent</translation>
    </message>
    <message>
        <source>changes what pages load</source>
        <translation>modifie ce que les pages chargent</translation>
    </message>
    <message>
        <source>blocks or redirects what pages load</source>
        <translation>bloque ou redirige ce que les pages chargent</translation>
    </message>
    <message>
        <source>runs programs in pages</source>
        <translation>exécute des programmes dans les pages</translation>
    </message>
    <message>
        <source>records the screen</source>
        <translation>enregistre l’écran</translation>
    </message>
    <message>
        <source>records pages</source>
        <translation>enregistre des pages en vidéo</translation>
    </message>
    <message>
        <source>saves pages</source>
        <translation>sauvegarde des pages</translation>
    </message>
    <message>
        <source>reads the clipboard</source>
        <translation>lit le presse-papiers</translation>
    </message>
    <message>
        <source>reads and changes bookmarks</source>
        <translation>lit et modifie les signets</translation>
    </message>
    <message>
        <source>sees and starts downloads</source>
        <translation>voit et lance des téléchargements</translation>
    </message>
    <message>
        <source>opens downloaded files</source>
        <translation>ouvre les fichiers téléchargés</translation>
    </message>
    <message>
        <source>sees the pages visited most often</source>
        <translation>voit les pages les plus visitées</translation>
    </message>
    <message>
        <source>sees closed tabs and those of other devices</source>
        <translation>voit les onglets fermés et ceux d’autres appareils</translation>
    </message>
    <message>
        <source>clears the browser&apos;s data</source>
        <translation>efface les données du navigateur</translation>
    </message>
    <message>
        <source>changes privacy settings</source>
        <translation>modifie les réglages de confidentialité</translation>
    </message>
    <message>
        <source>changes what sites are allowed</source>
        <translation>modifie ce que les sites peuvent faire</translation>
    </message>
    <message>
        <source>changes the browser&apos;s settings</source>
        <translation>modifie les réglages du navigateur</translation>
    </message>
    <message>
        <source>sees where this Mac is</source>
        <translation>voit où se trouve ce Mac</translation>
    </message>
    <message>
        <source>sees the account of the browser</source>
        <translation>voit le compte du navigateur</translation>
    </message>
    <message>
        <source>sees the account&apos;s address</source>
        <translation>voit l’adresse du compte</translation>
    </message>
    <message>
        <source>shows notifications</source>
        <translation>affiche des notifications</translation>
    </message>
    <message>
        <source>from the browser&apos;s store</source>
        <translation>de la boutique du navigateur</translation>
    </message>
    <message>
        <source>put there by another program or from a file</source>
        <translation>mise là par un autre programme ou par un fichier</translation>
    </message>
    <message>
        <source>put there by a policy</source>
        <translation>mise là par une règle</translation>
    </message>
    <message>
        <source>loaded from a folder</source>
        <translation>chargée depuis un dossier</translation>
    </message>
    <message>
        <source>came with the browser</source>
        <translation>venue avec le navigateur</translation>
    </message>
    <message>
        <source>where it came from is not known</source>
        <translation>on ne sait pas d’où elle vient</translation>
    </message>
    <message numerus="yes">
        <source>reads and changes %n web sites</source>
        <translation>
            <numerusform>lit et modifie %n site web</numerusform>
            <numerusform>lit et modifie %n sites web</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n other permissions</source>
        <translation>
            <numerusform>%n autre autorisation</numerusform>
            <numerusform>%n autres autorisations</numerusform>
        </translation>
    </message>
    <message>
        <source>%1; %2</source>
        <translation>%1 ; %2</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Cookies</source>
        <translation>Cookies</translation>
    </message>
    <message>
        <source>What web sites use to recognise you. Clearing them signs you out of web sites.</source>
        <translation>Ce qui permet aux sites de vous reconnaître. Les effacer vous déconnecte des sites.</translation>
    </message>
    <message>
        <source>Browser Caches</source>
        <translation>Caches du navigateur</translation>
    </message>
    <message>
        <source>Copies of pages, pictures and programs of web sites. Sites load a little slower the first time afterwards.</source>
        <translation>Copies de pages, d’images et de programmes de sites web. Ensuite, les sites se chargent un peu moins vite la première fois.</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Historique</translation>
    </message>
    <message>
        <source>The pages that were visited.</source>
        <translation>Les pages visitées.</translation>
    </message>
    <message>
        <source>Visited Links</source>
        <translation>Liens visités</translation>
    </message>
    <message>
        <source>Which links are drawn as visited.</source>
        <translation>Quels liens sont dessinés comme visités.</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Téléchargements</translation>
    </message>
    <message>
        <source>The list of downloads. The downloaded files stay.</source>
        <translation>La liste des téléchargements. Les fichiers téléchargés restent.</translation>
    </message>
    <message>
        <source>Login Data</source>
        <translation>Identifiants</translation>
    </message>
    <message>
        <source>Passwords that the browser remembers. They are lost unless they are kept elsewhere too.</source>
        <translation>Les mots de passe que le navigateur retient. Ils sont perdus s’ils ne sont pas gardés ailleurs.</translation>
    </message>
    <message>
        <source>LastSession</source>
        <translation>Dernière session</translation>
    </message>
    <message>
        <source>The windows and tabs that were open last. They will not come back.</source>
        <translation>Les fenêtres et onglets ouverts en dernier. Ils ne reviendront pas.</translation>
    </message>
    <message>
        <source>User preferences</source>
        <translation>Préférences de l’utilisateur</translation>
    </message>
    <message>
        <source>The browser&apos;s settings. It starts with its defaults afterwards.</source>
        <translation>Les réglages du navigateur. Il repart ensuite avec ses valeurs d’origine.</translation>
    </message>
    <message>
        <source>Favicons</source>
        <translation>Icônes de sites</translation>
    </message>
    <message>
        <source>The small pictures of web sites, which tell where you have been.</source>
        <translation>Les petites images des sites, qui révèlent où vous êtes passé.</translation>
    </message>
    <message>
        <source>TopSites</source>
        <translation>Pages les plus visitées</translation>
    </message>
    <message>
        <source>The pages visited most often.</source>
        <translation>Les pages visitées le plus souvent.</translation>
    </message>
    <message>
        <source>Top Sites</source>
        <translation>Pages les plus visitées</translation>
    </message>
    <message>
        <source>Local Storage</source>
        <translation>Stockage local</translation>
    </message>
    <message>
        <source>What web sites and forms keep on this disk: drafts, settings, typed texts, addresses and cards that are filled in.</source>
        <translation>Ce que sites et formulaires gardent sur ce disque : brouillons, réglages, textes tapés, adresses et cartes à remplir.</translation>
    </message>
    <message>
        <source>What was made or accepted by hand: certificates, words of the dictionary, search services, which program opens what.</source>
        <translation>Ce qui a été fait ou accepté à la main : certificats, mots du dictionnaire, moteurs de recherche, quel programme ouvre quoi.</translation>
    </message>
    <message>
        <source>Reading List</source>
        <translation>Liste de lecture</translation>
    </message>
    <message>
        <source>Pages saved for reading offline. The list of their addresses stays.</source>
        <translation>Pages gardées pour être lues hors ligne. La liste de leurs adresses reste.</translation>
    </message>
    <message>
        <source>Form</source>
        <translation>Formulaires</translation>
    </message>
    <message>
        <source>What was typed into forms.</source>
        <translation>Ce qui a été tapé dans des formulaires.</translation>
    </message>
    <message>
        <source>Recent Search</source>
        <translation>Recherches récentes</translation>
    </message>
    <message>
        <source>Search services that web sites offered.</source>
        <translation>Moteurs de recherche proposés par des sites.</translation>
    </message>
    <message>
        <source>WebFeeds</source>
        <translation>Flux web</translation>
    </message>
    <message>
        <source>The news feeds that were subscribed to.</source>
        <translation>Les flux d’actualités suivis.</translation>
    </message>
    <message>
        <source>Tabs and Tab Groups</source>
        <translation>Onglets et groupes d’onglets</translation>
    </message>
    <message>
        <source>One file with the open tabs, the tab groups and the list of profiles. They are lost together.</source>
        <translation>Un fichier avec les onglets ouverts, les groupes d’onglets et la liste des profils. Ils sont perdus ensemble.</translation>
    </message>
    <message>
        <source>Crash Reports</source>
        <translation>Rapports de plantage</translation>
    </message>
    <message>
        <source>What was recorded when the browser crashed.</source>
        <translation>Ce qui a été noté quand le navigateur a planté.</translation>
    </message>
    <message>
        <source>Firefox keeps all three in one file. Whoever clears it loses the bookmarks too.</source>
        <translation>Firefox garde les trois dans un seul fichier. Qui l’efface perd aussi les marque-pages.</translation>
    </message>
    <message>
        <source>Reset Browsers Preferences to Defaults</source>
        <translation>Rétablir les réglages d’origine des navigateurs</translation>
    </message>
    <message>
        <source>The settings of all browsers, such as a start page that was changed for you. Each starts with its defaults afterwards.</source>
        <translation>Les réglages de tous les navigateurs, par exemple une page d’accueil changée à votre place. Chacun repart ensuite avec ses valeurs d’origine.</translation>
    </message>
    <message>
        <source>System Cache Files</source>
        <translation>Fichiers de cache du système</translation>
    </message>
    <message>
        <source>What applications keep to be quicker. They make it anew when they need it.</source>
        <translation>Ce que les applications gardent pour aller plus vite. Elles le refont quand elles en ont besoin.</translation>
    </message>
    <message>
        <source>Applications Cache Files</source>
        <translation>Fichiers de cache des applications</translation>
    </message>
    <message>
        <source>The same of applications that live in a container of their own.</source>
        <translation>La même chose pour les applications qui vivent dans leur propre conteneur.</translation>
    </message>
    <message>
        <source>System Log Files</source>
        <translation>Journaux du système</translation>
    </message>
    <message>
        <source>Records of what applications did. Useful only when looking for a fault.</source>
        <translation>Traces de ce que les applications ont fait. Utiles seulement pour chercher une panne.</translation>
    </message>
    <message>
        <source>Applications Log Files</source>
        <translation>Journaux des applications</translation>
    </message>
    <message>
        <source>System Downloads Log</source>
        <translation>Journal des téléchargements du système</translation>
    </message>
    <message>
        <source>The system&apos;s list of everything that was downloaded, and from where.</source>
        <translation>La liste que tient le système de tout ce qui a été téléchargé, et d’où.</translation>
    </message>
    <message>
        <source>Trash Files</source>
        <translation>Fichiers de la corbeille</translation>
    </message>
    <message>
        <source>What was put into the Trash. It cannot be put back afterwards.</source>
        <translation>Ce qui a été mis à la corbeille. Impossible ensuite de l’en sortir.</translation>
    </message>
    <message>
        <source>Quick Look Thumbnails</source>
        <translation>Vignettes Coup d’œil</translation>
    </message>
    <message>
        <source>Small pictures of documents that were looked at, of deleted ones and those on other disks too. They are made anew.</source>
        <translation>Petites images de documents regardés, y compris effacés ou sur d’autres disques. Elles sont refaites.</translation>
    </message>
    <message>
        <source>Recent Items</source>
        <translation>Éléments récents</translation>
    </message>
    <message>
        <source>Which documents, applications and servers were opened last. They themselves stay.</source>
        <translation>Les documents, applications et serveurs ouverts en dernier. Eux-mêmes restent.</translation>
    </message>
    <message>
        <source>Saved Application States</source>
        <translation>États enregistrés des applications</translation>
    </message>
    <message>
        <source>The windows that applications open again. They start with none afterwards.</source>
        <translation>Les fenêtres que les applications rouvrent. Elles repartent ensuite sans aucune.</translation>
    </message>
    <message>
        <source>Terminal Histories</source>
        <translation>Historiques du terminal</translation>
    </message>
    <message>
        <source>The commands typed into terminals, and now and then a password among them.</source>
        <translation>Les commandes tapées dans un terminal, avec parfois un mot de passe parmi elles.</translation>
    </message>
    <message>
        <source>Diagnostic Reports</source>
        <translation>Rapports de diagnostic</translation>
    </message>
    <message>
        <source>What was recorded when applications crashed or hung.</source>
        <translation>Ce qui a été noté quand des applications ont planté ou se sont bloquées.</translation>
    </message>
    <message>
        <source>Mail Download</source>
        <translation>Pièces jointes de Mail</translation>
    </message>
    <message>
        <source>Attachments that were opened. They stay in their messages.</source>
        <translation>Les pièces jointes ouvertes. Elles restent dans leurs messages.</translation>
    </message>
    <message>
        <source>Mail Cache Files</source>
        <translation>Fichiers de cache de Mail</translation>
    </message>
    <message>
        <source>What Mail keeps to be quicker. Messages stay.</source>
        <translation>Ce que Mail garde pour aller plus vite. Les messages restent.</translation>
    </message>
    <message>
        <source>Mail Index</source>
        <translation>Index de Mail</translation>
    </message>
    <message>
        <source>Senders and subjects of all messages. Mail makes it anew at its next start, which takes a while; messages stay.</source>
        <translation>Expéditeurs et objets de tous les messages. Mail le refait au prochain démarrage, ce qui prend un moment ; les messages restent.</translation>
    </message>
    <message>
        <source>Flash Cookies</source>
        <translation>Cookies Flash</translation>
    </message>
    <message>
        <source>What web sites kept by way of the Flash player.</source>
        <translation>Ce que des sites ont gardé au moyen du lecteur Flash.</translation>
    </message>
    <message>
        <source>History, Downloads and Bookmarks</source>
        <translation>Historique, téléchargements et marque-pages</translation>
    </message>
    <message>
        <source>Cookies (%1)</source>
        <translation>Cookies (%1)</translation>
    </message>
    <message>
        <source>Visited Links (%1)</source>
        <translation>Liens visités (%1)</translation>
    </message>
    <message>
        <source>History (%1)</source>
        <translation>Historique (%1)</translation>
    </message>
    <message>
        <source>Login Data (%1)</source>
        <translation>Identifiants (%1)</translation>
    </message>
    <message>
        <source>LastSession (%1)</source>
        <translation>Dernière session (%1)</translation>
    </message>
    <message>
        <source>User preferences (%1)</source>
        <translation>Préférences de l’utilisateur (%1)</translation>
    </message>
    <message>
        <source>Favicons (%1)</source>
        <translation>Icônes de sites (%1)</translation>
    </message>
    <message>
        <source>Top Sites (%1)</source>
        <translation>Pages les plus visitées (%1)</translation>
    </message>
    <message>
        <source>Local Storage (%1)</source>
        <translation>Stockage local (%1)</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Système</translation>
    </message>
    <message>
        <source>Browser Extensions</source>
        <translation>Extensions de navigateur</translation>
    </message>
    <message>
        <source>A browser extension. Clearing removes it; the browser may say that it is damaged.</source>
        <translation>Une extension de navigateur. L’effacer la supprime ; le navigateur dira peut-être qu’elle est endommagée.</translation>
    </message>
    <message>
        <source>%1 Extensions</source>
        <translation>Extensions de %1</translation>
    </message>
    <message>
        <source>largest: %1</source>
        <translation>les plus gros : %1</translation>
    </message>
    <message>
        <source>The report cannot be opened: %1</source>
        <translation>Le rapport ne peut pas être ouvert : %1</translation>
    </message>
    <message>
        <source>The reports cannot be compared: %1</source>
        <translation>Les rapports ne peuvent pas être comparés : %1</translation>
    </message>
    <message>
        <source>The report could not be deleted: %1</source>
        <translation>Le rapport n’a pas pu être supprimé : %1</translation>
    </message>
    <message>
        <source>It cannot be told whether this report is of the disk in front, so what of it is still there is not known.</source>
        <translation>On ne peut pas dire si ce rapport concerne le disque présent ; on ne sait donc pas ce qui en est encore là.</translation>
    </message>
    <message>
        <source>This report is of another disk than the one in front, so what of it is still there is not known.</source>
        <translation>Ce rapport concerne un autre disque que celui qui est présent ; on ne sait donc pas ce qui en est encore là.</translation>
    </message>
    <message>
        <source>It cannot be told whether this report is of this disk, so there is nothing to show.</source>
        <translation>On ne peut pas dire si ce rapport concerne ce disque ; il n’y a donc rien à montrer.</translation>
    </message>
    <message>
        <source>This report is of another volume, so there is nothing to show.</source>
        <translation>Ce rapport concerne un autre volume ; il n’y a donc rien à montrer.</translation>
    </message>
    <message>
        <source>The report was sent to the printer.</source>
        <translation>Le rapport a été envoyé à l’imprimante.</translation>
    </message>
    <message>
        <source>The report was not printed: %1</source>
        <translation>Le rapport n’a pas été imprimé : %1</translation>
    </message>
    <message>
        <source>The document %1 cannot be read.</source>
        <translation>Le document %1 ne peut pas être lu.</translation>
    </message>
    <message>
        <source>It cannot be told whether these reports are of one disk: what is new or gone here may merely be elsewhere.</source>
        <translation>On ne peut pas dire si ces rapports concernent un même disque : ce qui est nouveau ou disparu ici est peut-être seulement ailleurs.</translation>
    </message>
    <message>
        <source>These two are reports of different volumes: what is new or gone here may merely be elsewhere.</source>
        <translation>Ces deux rapports concernent des volumes différents : ce qui est nouveau ou disparu ici est peut-être seulement ailleurs.</translation>
    </message>
    <message>
        <source>These two are reports of different users: what is new or gone here may merely be elsewhere.</source>
        <translation>Ces deux rapports concernent des utilisateurs différents : ce qui est nouveau ou disparu ici est peut-être seulement ailleurs.</translation>
    </message>
    <message>
        <source>The later scan did not look at everything: what is gone here may still be there.</source>
        <translation>La seconde analyse n’a pas tout regardé : ce qui est disparu ici est peut-être encore là.</translation>
    </message>
    <message>
        <source>Only the earlier scan was a deep one: what is gone here may still be there.</source>
        <translation>Seule la première analyse était approfondie : ce qui est disparu ici est peut-être encore là.</translation>
    </message>
    <message>
        <source>%1 of %2 exported to %3.</source>
        <translation>%1 sur %2 exporté(s) vers %3.</translation>
    </message>
    <message>
        <source>it cannot be told whether the report is of this disk</source>
        <translation>on ne peut pas dire si le rapport concerne ce disque</translation>
    </message>
    <message>
        <source>the report is of another volume</source>
        <translation>le rapport concerne un autre volume</translation>
    </message>
    <message>
        <source>its path is damaged</source>
        <translation>son chemin est endommagé</translation>
    </message>
    <message>
        <source>The document cannot be shown: it is damaged. Print or export it anew.</source>
        <translation>Le document ne peut pas être affiché : il est endommagé. Imprimez-le ou exportez-le de nouveau.</translation>
    </message>
    <message>
        <source>All threats are Removed</source>
        <translation>Toutes les menaces sont supprimées</translation>
    </message>
    <message>
        <source>One Threat Remaining</source>
        <translation>Il reste une menace</translation>
    </message>
    <message>
        <source>Multiple Threats Remaining</source>
        <translation>Il reste plusieurs menaces</translation>
    </message>
    <message>
        <source>  %1 Failed</source>
        <translation>  %1 échec(s)</translation>
    </message>
    <message>
        <source>%1 Failed</source>
        <translation>%1 échec(s)</translation>
    </message>
    <message>
        <source>%1 removed, %2 failed, %3 left as you chose; Apple Remote Desktop stays: it is switched off in the Mac&apos;s settings.</source>
        <translation>%1 supprimé(s), %2 échec(s), %3 laissé(s) selon votre choix ; Apple Remote Desktop reste : il se désactive dans les réglages du Mac.</translation>
    </message>
    <message>
        <source>%1 removed, %2 failed; Apple Remote Desktop stays: it is switched off in the Mac&apos;s settings.</source>
        <translation>%1 supprimé(s), %2 échec(s) ; Apple Remote Desktop reste : il se désactive dans les réglages du Mac.</translation>
    </message>
    <message>
        <source>%1 removed, %2 left as you chose; Apple Remote Desktop stays: it is switched off in the Mac&apos;s settings.</source>
        <translation>%1 supprimé(s), %2 laissé(s) selon votre choix ; Apple Remote Desktop reste : il se désactive dans les réglages du Mac.</translation>
    </message>
    <message>
        <source>%1 removed; Apple Remote Desktop stays: it is switched off in the Mac&apos;s settings.</source>
        <translation>%1 supprimé(s) ; Apple Remote Desktop reste : il se désactive dans les réglages du Mac.</translation>
    </message>
    <message>
        <source>%1 removed, %2 failed, %3 left as you chose.</source>
        <translation>%1 supprimé(s), %2 échec(s), %3 laissé(s) selon votre choix.</translation>
    </message>
    <message>
        <source>%1 removed, %2 failed.</source>
        <translation>%1 supprimé(s), %2 échec(s).</translation>
    </message>
    <message>
        <source>%1 removed, %2 left as you chose.</source>
        <translation>%1 supprimé(s), %2 laissé(s) selon votre choix.</translation>
    </message>
    <message>
        <source>%1 removed.</source>
        <translation>%1 supprimé(s).</translation>
    </message>
    <message>
        <source>this folder is never removed; choose what lies inside it</source>
        <translation>ce dossier n’est jamais supprimé ; choisissez ce qu’il contient</translation>
    </message>
    <message>
        <source>a link on the way leads elsewhere than when it was found; look again first</source>
        <translation>un lien en chemin mène ailleurs que lors de la découverte ; regardez d’abord de nouveau</translation>
    </message>
    <message>
        <source>it is no longer what it was when it was found; look again first</source>
        <translation>ce n’est plus ce que c’était lors de la découverte ; regardez d’abord de nouveau</translation>
    </message>
    <message>
        <source>another disk is mounted there; eject it first</source>
        <translation>un autre disque y est monté ; éjectez-le d’abord</translation>
    </message>
    <message>
        <source>the volume is mounted read-only; mount it for writing first</source>
        <translation>le volume est monté en lecture seule ; montez-le d’abord en écriture</translation>
    </message>
    <message>
        <source>the folder that holds it may not be changed; ask its owner, or run this with the rights to</source>
        <translation>le dossier qui le contient ne peut pas être modifié ; demandez à son propriétaire ou lancez ceci avec les droits voulus</translation>
    </message>
    <message>
        <source>it is locked against changes; unlock it first</source>
        <translation>il est verrouillé ; déverrouillez-le d’abord</translation>
    </message>
    <message>
        <source>it is in use; close what uses it and try again</source>
        <translation>il est utilisé ; fermez ce qui l’utilise et réessayez</translation>
    </message>
    <message>
        <source>something keeps filling the folder; stop that first</source>
        <translation>quelque chose remplit sans cesse le dossier ; arrêtez cela d’abord</translation>
    </message>
    <message>
        <source>its name or one in it is exchanged again and again; stop what does that first</source>
        <translation>son nom ou un nom qu’il contient est sans cesse échangé ; arrêtez d’abord ce qui le fait</translation>
    </message>
    <message>
        <source>its folder cannot be read; run this with the rights to</source>
        <translation>son dossier ne peut pas être lu ; lancez ceci avec les droits voulus</translation>
    </message>
    <message>
        <source>the report is of another volume; connect that one</source>
        <translation>le rapport concerne un autre volume ; connectez celui-là</translation>
    </message>
    <message>
        <source>it cannot be told whether the report is of this disk; scan it again first</source>
        <translation>on ne peut pas dire si le rapport concerne ce disque ; analysez-le d’abord de nouveau</translation>
    </message>
    <message>
        <source>remote desktop is not removed; switch it off in the Mac&apos;s Sharing settings</source>
        <translation>Remote Desktop n’est pas supprimé ; désactivez-le dans les réglages de partage du Mac</translation>
    </message>
    <message>
        <source>the system stopped a removal outside the volume</source>
        <translation>le système a empêché une suppression hors du volume</translation>
    </message>
    <message>
        <source>stopped before it was done; remove it again to finish</source>
        <translation>arrêté avant la fin ; supprimez-le de nouveau pour terminer</translation>
    </message>
    <message>
        <source>the system reports an error; check the disk, then try again</source>
        <translation>le système signale une erreur ; vérifiez le disque, puis réessayez</translation>
    </message>
    <message>
        <source>it was given up</source>
        <translation>abandonné</translation>
    </message>
    <message>
        <source>in this folder only its owner may remove it</source>
        <translation>dans ce dossier, seul son propriétaire peut le supprimer</translation>
    </message>
    <message>
        <source>the system swaps to it</source>
        <translation>le système s’en sert comme mémoire d’échange</translation>
    </message>
    <message>
        <source>another one is there, spelled &quot;%1&quot;; scan again</source>
        <translation>il y en a un autre, écrit « %1 » ; relancez l’analyse</translation>
    </message>
    <message>
        <source>%1 is running; close it and try again</source>
        <translation>%1 est ouvert ; fermez-le et réessayez</translation>
    </message>
    <message>
        <source>a folder on the way cannot be searched</source>
        <translation>un dossier en chemin ne peut pas être parcouru</translation>
    </message>
    <message>
        <source>a folder on the way to it cannot be searched</source>
        <translation>un dossier sur le chemin ne peut pas être parcouru</translation>
    </message>
    <message>
        <source>it holds too many empty folders</source>
        <translation>il contient trop de dossiers vides</translation>
    </message>
    <message>
        <source>This is an image or a list of names, which is only read and never changed. To remove something, mount the disk itself and open its folder.</source>
        <translation>Ceci est une image ou une liste de noms : elle est seulement lue, jamais modifiée. Pour supprimer quelque chose, montez le disque lui-même et ouvrez son dossier.</translation>
    </message>
    <message>
        <source>A scan is running. Stop it first, or wait for its end.</source>
        <translation>Une analyse est en cours. Arrêtez-la d’abord ou attendez sa fin.</translation>
    </message>
    <message>
        <source>Something is being removed. Wait for its end.</source>
        <translation>Une suppression est en cours. Attendez sa fin.</translation>
    </message>
    <message>
        <source>there are more accounts than any Mac has, and not all were read</source>
        <translation>il y a plus de comptes qu’un Mac n’en a, et tous n’ont pas été lus</translation>
    </message>
    <message>
        <source>there is no such home</source>
        <translation>ce dossier de départ n’existe pas</translation>
    </message>
    <message>
        <source>it was found, and then could not be looked at</source>
        <translation>trouvé, puis impossible à regarder</translation>
    </message>
    <message>
        <source>%1 more folders below it</source>
        <translation>%1 dossiers de plus en dessous</translation>
    </message>
    <message>
        <source>%1 Not looked at: the system volume (%2).</source>
        <translation>%1 Non regardé : le volume système (%2).</translation>
    </message>
    <message>
        <source>%1 Not looked at: %2, the system volume (%3).</source>
        <translation>%1 Non regardé : %2, le volume système (%3).</translation>
    </message>
    <message>
        <source>%1 Not looked at: %2.</source>
        <translation>%1 Non regardé : %2.</translation>
    </message>
    <message>
        <source>%1 Besides, %2.</source>
        <translation>%1 De plus : %2.</translation>
    </message>
    <message>
        <source>Found: %1.</source>
        <translation>Trouvé : %1.</translation>
    </message>
    <message>
        <source>Attention: %1.</source>
        <translation>Attention : %1.</translation>
    </message>
    <message>
        <source>Stopped %1: nothing found in the part that was looked at; not everything could be read: %2.</source>
        <translation>Arrêtée %1 : rien trouvé dans la partie regardée ; tout n’a pas pu être lu : %2.</translation>
    </message>
    <message>
        <source>Stopped %1: nothing found in the part that was looked at.</source>
        <translation>Arrêtée %1 : rien trouvé dans la partie regardée.</translation>
    </message>
    <message>
        <source>Incomplete: nothing found, but what was looked at is not known.</source>
        <translation>Incomplet : rien trouvé, mais on ne sait pas ce qui a été regardé.</translation>
    </message>
    <message>
        <source>Incomplete: nothing found, but not everything could be looked at: %1.</source>
        <translation>Incomplet : rien trouvé, mais tout n’a pas pu être regardé : %1.</translation>
    </message>
    <message>
        <source>Clean for %1: nothing found.</source>
        <translation>Sain pour %1 : rien trouvé.</translation>
    </message>
    <message>
        <source>Clean: nothing found.</source>
        <translation>Sain : rien trouvé.</translation>
    </message>
    <message>
        <source>%1; not everything could be read: %2</source>
        <translation>%1 ; tout n’a pas pu être lu : %2</translation>
    </message>
    <message>
        <source>%1; the scan was stopped %2</source>
        <translation>%1 ; l’analyse a été arrêtée %2</translation>
    </message>
    <message>
        <source>the system volume was not looked at: %1 left out</source>
        <translation>le volume système n’a pas été regardé : %1 omise(s)</translation>
    </message>
    <message>
        <source>not looked at: the homes of %1</source>
        <translation>non regardé : les dossiers de départ de %1</translation>
    </message>
    <message>
        <source>not looked at: other disks at %1 and %2 more</source>
        <translation>non regardé : d’autres disques à %1 et %2 de plus</translation>
    </message>
    <message>
        <source>not looked at: other disks at %1</source>
        <translation>non regardé : d’autres disques à %1</translation>
    </message>
    <message>
        <source>before its end</source>
        <translation>avant la fin</translation>
    </message>
    <message>
        <source>at %1 %</source>
        <translation>à %1 %</translation>
    </message>
    <message>
        <source>no home at %1, and no other home on this volume</source>
        <translation>pas de dossier de départ à %1, ni aucun autre sur ce volume</translation>
    </message>
    <message>
        <source>no home at %1, homes there are: %2</source>
        <translation>pas de dossier de départ à %1 ; il y a : %2</translation>
    </message>
    <message>
        <source>there was no access to the folder to be gone through</source>
        <translation>il n’y avait pas d’accès au dossier à parcourir</translation>
    </message>
    <message numerus="yes">
        <source>%n applications that the list leaves out bear a known name: %1 and %2 more</source>
        <translation>
            <numerusform>%n application omise de la liste porte un nom connu : %1 et %2 de plus</numerusform>
            <numerusform>%n applications omises de la liste portent un nom connu : %1 et %2 de plus</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n applications that the list leaves out bear a known name: %1</source>
        <translation>
            <numerusform>%n application omise de la liste porte un nom connu : %1</numerusform>
            <numerusform>%n applications omises de la liste portent un nom connu : %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n locations could not be read</source>
        <translation>
            <numerusform>%n emplacement n’a pas pu être lu</numerusform>
            <numerusform>%n emplacements n’ont pas pu être lus</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n potential threats</source>
        <translation>
            <numerusform>%n menace possible</numerusform>
            <numerusform>%n menaces possibles</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n signatures</source>
        <translation>
            <numerusform>%n signature</numerusform>
            <numerusform>%n signatures</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n locations</source>
        <translation>
            <numerusform>%n emplacement</numerusform>
            <numerusform>%n emplacements</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n entries</source>
        <translation>
            <numerusform>%n élément</numerusform>
            <numerusform>%n éléments</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n findings</source>
        <translation>
            <numerusform>%n résultat</numerusform>
            <numerusform>%n résultats</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reports</source>
        <translation>
            <numerusform>%n rapport</numerusform>
            <numerusform>%n rapports</numerusform>
        </translation>
    </message>
    <message>
        <source>Found</source>
        <translation>Trouvé</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Attention</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Arrêtée</translation>
    </message>
    <message>
        <source>Incomplete</source>
        <translation>Incomplet</translation>
    </message>
    <message>
        <source>Clean</source>
        <translation>Sain</translation>
    </message>
    <message>
        <source>Potential Threats Detected</source>
        <translation>Menaces possibles détectées</translation>
    </message>
    <message>
        <source>An Application Needs Your Attention</source>
        <translation>Une application mérite votre attention</translation>
    </message>
    <message>
        <source>Stopped Before All Was Looked At</source>
        <translation>Arrêtée avant d’avoir tout regardé</translation>
    </message>
    <message>
        <source>Not Everything Could Be Looked At</source>
        <translation>Tout n’a pas pu être regardé</translation>
    </message>
    <message>
        <source>No Potential Threats Detected</source>
        <translation>Aucune menace possible détectée</translation>
    </message>
    <message>
        <source>Not scan yet, please scan your mac</source>
        <translation>Pas encore analysé, veuillez analyser votre Mac</translation>
    </message>
    <message numerus="yes">
        <source>A scan has not been run on your system for %n days</source>
        <translation>
            <numerusform>Votre système n’a pas été analysé depuis %n jour</numerusform>
            <numerusform>Votre système n’a pas été analysé depuis %n jours</numerusform>
        </translation>
    </message>
    <message>
        <source>A scan has never been run on your system</source>
        <translation>Votre système n’a jamais été analysé</translation>
    </message>
    <message>
        <source>The Home Folder Cannot Be Written To</source>
        <translation>Le dossier de départ n’est pas accessible en écriture</translation>
    </message>
    <message>
        <source>It can be scanned as far as it can be read; nothing in it can be removed.</source>
        <translation>Il peut être analysé pour autant qu’il se lit ; rien ne peut y être supprimé.</translation>
    </message>
    <message>
        <source>Do you still think you are infected
with spyware?</source>
        <translation>Pensez-vous malgré tout être infecté
par un logiciel espion ?</translation>
    </message>
    <message>
        <source>Please restart your app</source>
        <translation>Veuillez relancer l’application</translation>
    </message>
    <message>
        <source>Calculating Files:</source>
        <translation>Décompte des fichiers :</translation>
    </message>
    <message>
        <source>Scanning Entry:</source>
        <translation>Élément analysé :</translation>
    </message>
    <message>
        <source>Done Scanning</source>
        <translation>Analyse terminée</translation>
    </message>
    <message>
        <source>Deep Scan</source>
        <translation>Analyse approfondie</translation>
    </message>
    <message>
        <source>Quick Scan</source>
        <translation>Analyse rapide</translation>
    </message>
    <message>
        <source>Real Time Scan</source>
        <translation>Analyse en temps réel</translation>
    </message>
    <message>
        <source>Scheduled Scan</source>
        <translation>Analyse programmée</translation>
    </message>
    <message>
        <source>Full System Scan</source>
        <translation>Analyse du système entier</translation>
    </message>
    <message>
        <source>Custom Scan</source>
        <translation>Analyse personnalisée</translation>
    </message>
    <message>
        <source>Scan Path: %1</source>
        <translation>Chemin : %1</translation>
    </message>
    <message>
        <source>Scan Status:</source>
        <translation>État :</translation>
    </message>
    <message>
        <source>Scan Duration:</source>
        <translation>Durée :</translation>
    </message>
    <message>
        <source>Quick Scan &gt;</source>
        <translation>Analyse rapide &gt;</translation>
    </message>
    <message>
        <source>Deep Scan &gt;</source>
        <translation>Analyse approfondie &gt;</translation>
    </message>
    <message>
        <source>%1 Last time: %2.</source>
        <translation>%1 La dernière fois : %2.</translation>
    </message>
    <message>
        <source>Looks at every file you gave access to, and everywhere a quick scan does.</source>
        <translation>Regarde chaque fichier auquel vous avez donné accès, et partout où regarde une analyse rapide.</translation>
    </message>
    <message>
        <source>Looks in every place that known spyware settles in.</source>
        <translation>Regarde partout où s’installent les logiciels espions connus.</translation>
    </message>
    <message>
        <source>exact path</source>
        <translation>chemin exact</translation>
    </message>
    <message>
        <source>known name in a launch folder</source>
        <translation>nom dans dossier de lancement</translation>
    </message>
    <message>
        <source>name fragment</source>
        <translation>partie de nom</translation>
    </message>
    <message>
        <source>bare substring</source>
        <translation>simple suite de lettres</translation>
    </message>
    <message>
        <source>known name in a launch folder &quot;%1&quot;</source>
        <translation>nom dans dossier de lancement « %1 »</translation>
    </message>
    <message>
        <source>name fragment &quot;%1&quot;</source>
        <translation>partie de nom « %1 »</translation>
    </message>
    <message>
        <source>bare substring &quot;%1&quot;</source>
        <translation>simple suite de lettres « %1 »</translation>
    </message>
    <message>
        <source>This computer</source>
        <translation>Cet ordinateur</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Listing</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>inconnu</translation>
    </message>
    <message>
        <source>This computer; user %1</source>
        <translation>Cet ordinateur ; utilisateur %1</translation>
    </message>
    <message>
        <source>This computer; users %1</source>
        <translation>Cet ordinateur ; utilisateurs %1</translation>
    </message>
    <message>
        <source>This computer, %1</source>
        <translation>Cet ordinateur, %1</translation>
    </message>
    <message>
        <source>%1, This computer; user %2</source>
        <translation>%1, cet ordinateur ; utilisateur %2</translation>
    </message>
    <message>
        <source>%1, This computer; users %2</source>
        <translation>%1, cet ordinateur ; utilisateurs %2</translation>
    </message>
    <message>
        <source>%1, Folder %2; user %3</source>
        <translation>%1, dossier %2 ; utilisateur %3</translation>
    </message>
    <message>
        <source>%1, Folder %2; users %3</source>
        <translation>%1, dossier %2 ; utilisateurs %3</translation>
    </message>
    <message>
        <source>%1, Image %2; user %3</source>
        <translation>%1, image %2 ; utilisateur %3</translation>
    </message>
    <message>
        <source>%1, Image %2; users %3</source>
        <translation>%1, image %2 ; utilisateurs %3</translation>
    </message>
    <message>
        <source>%1, Listing %2; user %3</source>
        <translation>%1, liste %2 ; utilisateur %3</translation>
    </message>
    <message>
        <source>%1, Listing %2; users %3</source>
        <translation>%1, liste %2 ; utilisateurs %3</translation>
    </message>
    <message>
        <source>%1; user %2</source>
        <translation>%1 ; utilisateur %2</translation>
    </message>
    <message>
        <source>%1; users %2</source>
        <translation>%1 ; utilisateurs %2</translation>
    </message>
    <message>
        <source>Dashboard</source>
        <translation>Vue d’ensemble</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Analyse</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Outils</translation>
    </message>
    <message>
        <source>Reports</source>
        <translation>Rapports</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Agrandir</translation>
    </message>
    <message>
        <source>Bring All to Front</source>
        <translation>Tout ramener au premier plan</translation>
    </message>
    <message>
        <source>Real-time Scan Enabled</source>
        <translation>Analyse en temps réel activée</translation>
    </message>
    <message>
        <source>Real-time Scan Disabled</source>
        <translation>Analyse en temps réel désactivée</translation>
    </message>
    <message>
        <source>Enabled Real-time Scan</source>
        <translation>Analyse en temps réel activée</translation>
    </message>
    <message>
        <source>Disabled Real-time Scan</source>
        <translation>Analyse en temps réel désactivée</translation>
    </message>
    <message>
        <source>Check for Update</source>
        <translation>Rechercher une mise à jour</translation>
    </message>
    <message>
        <source>Checking for Update…</source>
        <translation>Recherche d’une mise à jour…</translation>
    </message>
    <message>
        <source>Open Pryvane</source>
        <translation>Ouvrir Pryvane</translation>
    </message>
    <message>
        <source>Visit Web Site</source>
        <translation>Visiter le site web</translation>
    </message>
    <message>
        <source>Quit Pryvane</source>
        <translation>Quitter Pryvane</translation>
    </message>
    <message>
        <source>Reading names: %1</source>
        <translation>Lecture des noms : %1</translation>
    </message>
    <message>
        <source>just now</source>
        <translation>à l’instant</translation>
    </message>
    <message>
        <source>Not scan yet</source>
        <translation>Pas encore analysé</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Hier</translation>
    </message>
    <message>
        <source>In few seconds</source>
        <translation>Dans quelques secondes</translation>
    </message>
    <message numerus="yes">
        <source>%n seconds ago</source>
        <translation>
            <numerusform>il y a %n seconde</numerusform>
            <numerusform>il y a %n secondes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes ago</source>
        <translation>
            <numerusform>il y a %n minute</numerusform>
            <numerusform>il y a %n minutes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hours ago</source>
        <translation>
            <numerusform>il y a %n heure</numerusform>
            <numerusform>il y a %n heures</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days ago</source>
        <translation>
            <numerusform>il y a %n jour</numerusform>
            <numerusform>il y a %n jours</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n weeks ago</source>
        <translation>
            <numerusform>il y a %n semaine</numerusform>
            <numerusform>il y a %n semaines</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n months ago</source>
        <translation>
            <numerusform>il y a %n mois</numerusform>
            <numerusform>il y a %n mois</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n years ago</source>
        <translation>
            <numerusform>il y a %n an</numerusform>
            <numerusform>il y a %n ans</numerusform>
        </translation>
    </message>
    <message>
        <source>less then 1 second</source>
        <translation>moins de 1 seconde</translation>
    </message>
    <message>
        <source>next: %1 %2 %3, %4</source>
        <translation>prochaine analyse : %1 %2 %3, %4</translation>
    </message>
    <message>
        <source>Sun</source>
        <translation>dim.</translation>
    </message>
    <message>
        <source>Mon</source>
        <translation>lun.</translation>
    </message>
    <message>
        <source>Tue</source>
        <translation>mar.</translation>
    </message>
    <message>
        <source>Wed</source>
        <translation>mer.</translation>
    </message>
    <message>
        <source>Thu</source>
        <translation>jeu.</translation>
    </message>
    <message>
        <source>Fri</source>
        <translation>ven.</translation>
    </message>
    <message>
        <source>Sat</source>
        <translation>sam.</translation>
    </message>
    <message>
        <source>Jan</source>
        <translation>janv.</translation>
    </message>
    <message>
        <source>Feb</source>
        <translation>févr.</translation>
    </message>
    <message>
        <source>Mar</source>
        <translation>mars</translation>
    </message>
    <message>
        <source>Apr</source>
        <translation>avr.</translation>
    </message>
    <message>
        <source>May</source>
        <translation>mai</translation>
    </message>
    <message>
        <source>Jun</source>
        <translation>juin</translation>
    </message>
    <message>
        <source>Jul</source>
        <translation>juil.</translation>
    </message>
    <message>
        <source>Aug</source>
        <translation>août</translation>
    </message>
    <message>
        <source>Sep</source>
        <translation>sept.</translation>
    </message>
    <message>
        <source>Oct</source>
        <translation>oct.</translation>
    </message>
    <message>
        <source>Nov</source>
        <translation>nov.</translation>
    </message>
    <message>
        <source>Dec</source>
        <translation>déc.</translation>
    </message>
    <message>
        <source>Sunday</source>
        <translation>dimanche</translation>
    </message>
    <message>
        <source>Monday</source>
        <translation>lundi</translation>
    </message>
    <message>
        <source>Tuesday</source>
        <translation>mardi</translation>
    </message>
    <message>
        <source>Wednesday</source>
        <translation>mercredi</translation>
    </message>
    <message>
        <source>Thursday</source>
        <translation>jeudi</translation>
    </message>
    <message>
        <source>Friday</source>
        <translation>vendredi</translation>
    </message>
    <message>
        <source>Saturday</source>
        <translation>samedi</translation>
    </message>
    <message>
        <source>%1 January %2</source>
        <translation>%1 janvier %2</translation>
    </message>
    <message>
        <source>%1 February %2</source>
        <translation>%1 février %2</translation>
    </message>
    <message>
        <source>%1 March %2</source>
        <translation>%1 mars %2</translation>
    </message>
    <message>
        <source>%1 April %2</source>
        <translation>%1 avril %2</translation>
    </message>
    <message>
        <source>%1 May %2</source>
        <translation>%1 mai %2</translation>
    </message>
    <message>
        <source>%1 June %2</source>
        <translation>%1 juin %2</translation>
    </message>
    <message>
        <source>%1 July %2</source>
        <translation>%1 juillet %2</translation>
    </message>
    <message>
        <source>%1 August %2</source>
        <translation>%1 août %2</translation>
    </message>
    <message>
        <source>%1 September %2</source>
        <translation>%1 septembre %2</translation>
    </message>
    <message>
        <source>%1 October %2</source>
        <translation>%1 octobre %2</translation>
    </message>
    <message>
        <source>%1 November %2</source>
        <translation>%1 novembre %2</translation>
    </message>
    <message>
        <source>%1 December %2</source>
        <translation>%1 décembre %2</translation>
    </message>
    <message>
        <source>%1 January</source>
        <translation>%1 janvier</translation>
    </message>
    <message>
        <source>%1 February</source>
        <translation>%1 février</translation>
    </message>
    <message>
        <source>%1 March</source>
        <translation>%1 mars</translation>
    </message>
    <message>
        <source>%1 April</source>
        <translation>%1 avril</translation>
    </message>
    <message>
        <source>%1 May</source>
        <translation>%1 mai</translation>
    </message>
    <message>
        <source>%1 June</source>
        <translation>%1 juin</translation>
    </message>
    <message>
        <source>%1 July</source>
        <translation>%1 juillet</translation>
    </message>
    <message>
        <source>%1 August</source>
        <translation>%1 août</translation>
    </message>
    <message>
        <source>%1 September</source>
        <translation>%1 septembre</translation>
    </message>
    <message>
        <source>%1 October</source>
        <translation>%1 octobre</translation>
    </message>
    <message>
        <source>%1 November</source>
        <translation>%1 novembre</translation>
    </message>
    <message>
        <source>%1 December</source>
        <translation>%1 décembre</translation>
    </message>
    <message>
        <source>Every day</source>
        <translation>Tous les jours</translation>
    </message>
    <message>
        <source>Every 7 days</source>
        <translation>Tous les 7 jours</translation>
    </message>
    <message>
        <source>Every 30 days</source>
        <translation>Tous les 30 jours</translation>
    </message>
    <message>
        <source>Every 365 days</source>
        <translation>Tous les 365 jours</translation>
    </message>
    <message>
        <source>Once, on %1, %2, at %3.</source>
        <translation>Une fois, le %1 %2, à %3.</translation>
    </message>
    <message>
        <source>Every day at %1, next on %2, %3, the last time on %4.</source>
        <translation>Tous les jours à %1, la prochaine fois le %2 %3, la dernière fois le %4.</translation>
    </message>
    <message>
        <source>Every 30 days at %1, next on %2, %3, the last time on %4.</source>
        <translation>Tous les 30 jours à %1, la prochaine fois le %2 %3, la dernière fois le %4.</translation>
    </message>
    <message>
        <source>Every 365 days at %1, next on %2, %3, the last time on %4.</source>
        <translation>Tous les 365 jours à %1, la prochaine fois le %2 %3, la dernière fois le %4.</translation>
    </message>
    <message>
        <source>No scan is scheduled.</source>
        <translation>Aucune analyse n’est programmée.</translation>
    </message>
    <message>
        <source>The last day is before the first one.</source>
        <translation>Le dernier jour est avant le premier.</translation>
    </message>
    <message>
        <source>That time has passed, so nothing would be scanned.</source>
        <translation>Ce moment est passé, rien ne serait donc analysé.</translation>
    </message>
    <message>
        <source>Today, %1</source>
        <translation>Aujourd’hui, %1</translation>
    </message>
    <message>
        <source>Yesterday, %1</source>
        <translation>Hier, %1</translation>
    </message>
    <message>
        <source>Every %1 at %2, next on %3, %4, the last time on %5.</source>
        <translation>Chaque %1 à %2, la prochaine fois le %3 %4, la dernière fois le %5.</translation>
    </message>
    <message>
        <source>%1 byte</source>
        <translation>%1 octet</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 octets</translation>
    </message>
    <message>
        <source>%1 KB</source>
        <translation>%1 Ko</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 Mo</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1 Go</translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation>%1 To</translation>
    </message>
    <message>
        <source>%1 PB</source>
        <translation>%1 Po</translation>
    </message>
    <message>
        <source>%1 EB</source>
        <translation>%1 Eo</translation>
    </message>
    <message numerus="yes">
        <source>%n hours</source>
        <translation>
            <numerusform>%n heure</numerusform>
            <numerusform>%n heures</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes</source>
        <translation>
            <numerusform>%n minute</numerusform>
            <numerusform>%n minutes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n seconds</source>
        <translation>
            <numerusform>%n seconde</numerusform>
            <numerusform>%n secondes</numerusform>
        </translation>
    </message>
    <message>
        <source>this exact place is on the list</source>
        <translation>cet emplacement exact est sur la liste</translation>
    </message>
    <message>
        <source>an application of this name in the user&apos;s own Applications folder</source>
        <translation>une application de ce nom dans le dossier Applications de l’utilisateur</translation>
    </message>
    <message>
        <source>this place inside a Library folder is on the list</source>
        <translation>cet emplacement dans un dossier Library est sur la liste</translation>
    </message>
    <message>
        <source>part of a name in a folder where such programs settle</source>
        <translation>une partie d’un nom dans un dossier où s’installent de tels programmes</translation>
    </message>
    <message>
        <source>a word anywhere in a name in a folder where such programs settle</source>
        <translation>un mot quelque part dans un nom, dans un dossier où s’installent de tels programmes</translation>
    </message>
    <message>
        <source>a place that known backdoors use</source>
        <translation>un emplacement que des portes dérobées connues utilisent</translation>
    </message>
    <message>
        <source>where Apple Remote Desktop keeps its settings</source>
        <translation>là où Apple Remote Desktop garde ses réglages</translation>
    </message>
    <message>
        <source>a text anywhere in a path, which a deep scan alone looks for</source>
        <translation>un texte quelque part dans le chemin, que seule une analyse approfondie cherche</translation>
    </message>
    <message>
        <source>no rule of this version</source>
        <translation>aucune règle de cette version</translation>
    </message>
    <message>
        <source>another program: %1</source>
        <translation>un autre programme : %1</translation>
    </message>
    <message>
        <source>the disk does not say</source>
        <translation>le disque ne le dit pas</translation>
    </message>
    <message>
        <source>account not known (%1)</source>
        <translation>compte inconnu (%1)</translation>
    </message>
    <message>
        <source>The Scan Was Given Up</source>
        <translation>L’analyse a été abandonnée</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Afficher</translation>
    </message>
    <message>
        <source>While you are logged in, a quick scan of this computer starts at these times without a window. Its report is kept with the others.</source>
        <translation>Tant que votre session est ouverte, une analyse rapide de cet ordinateur démarre à ces moments, sans fenêtre. Son rapport est conservé avec les autres.</translation>
    </message>
    <message>
        <source>While you are logged in, a quick scan of %1 starts at these times without a window. Its report is kept with the others.</source>
        <translation>Tant que votre session est ouverte, une analyse rapide de %1 démarre à ces moments, sans fenêtre. Son rapport est conservé avec les autres.</translation>
    </message>
    <message>
        <source>An image or a list of names is only read while Pryvane is running.</source>
        <translation>Une image ou une liste de noms n’est lue que tant que Pryvane est en marche.</translation>
    </message>
    <message>
        <source>Not possible here: %1</source>
        <translation>Impossible ici : %1</translation>
    </message>
    <message>
        <source>Scans while Pryvane is closed could not be changed: %1</source>
        <translation>Les analyses pendant que Pryvane est fermé n’ont pas pu être modifiées : %1</translation>
    </message>
    <message>
        <source>this session is not run by systemd, which would have to start these scans.</source>
        <translation>cette session n’est pas gérée par systemd, qui devrait démarrer ces analyses.</translation>
    </message>
    <message>
        <source>%1 was written or changed by somebody else and is left as it is. Move it away first.</source>
        <translation>%1 a été écrit ou modifié par quelqu’un d’autre et reste tel quel. Déplacez-le d’abord.</translation>
    </message>
    <message>
        <source>pryvane-cli, which does these scans, is not installed beside Pryvane; install it</source>
        <translation>pryvane-cli, qui effectue ces analyses, n’est pas installé à côté de Pryvane ; installez-le</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>impossible d’écrire dans %1 : %2</translation>
    </message>
    <message>
        <source>systemd refuses: %1</source>
        <translation>systemd refuse : %1</translation>
    </message>
    <message>
        <source>Once a scan is scheduled, it can also start while Pryvane is closed.</source>
        <translation>Une fois planifiée, une analyse peut aussi commencer quand Pryvane est fermé.</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>Choose what to look at</source>
        <translation>Choisir ce qui est regardé</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Analyse</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Tick what is to go with Space, or everything shown with Ctrl+A, then choose Remove. A plan shows what would be deleted before anything is. Removal is permanent. What could not be removed is listed with the reason.</source>
        <translation>Cochez avec Espace ce qui doit partir, ou tout ce qui est affiché avec Ctrl+A, puis choisissez « Supprimer ». Un plan montre ce qui serait effacé avant que quoi que ce soit le soit. La suppression est définitive. Ce qui n’a pas pu être supprimé est listé avec la raison.</translation>
    </message>
    <message>
        <source>Keep the history</source>
        <translation>Garder l’historique</translation>
    </message>
    <message>
        <source>Every scan leaves a report. Reports can be compared, printed, exported and deleted, and what they list can still be removed later.</source>
        <translation>Chaque analyse laisse un rapport. Les rapports peuvent être comparés, imprimés, exportés et supprimés, et ce qu’ils listent peut encore être supprimé plus tard.</translation>
    </message>
    <message>
        <source>Scan on a schedule</source>
        <translation>Analyser à heures fixes</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Touches</translation>
    </message>
    <message>
        <source>Ctrl+1 to Ctrl+4 choose the screens, Ctrl+F the filter, Ctrl+P prints, F1 opens this guide, Esc closes a sheet.</source>
        <translation>Ctrl+1 à Ctrl+4 choisissent l’écran, Ctrl+F le filtre, Ctrl+P imprime, F1 ouvre ce guide, Esc ferme un volet.</translation>
    </message>
    <message>
        <source>The button at the foot of the navigation names the disk and the user. Click it, or press Ctrl+O, to look at another mounted Mac disk, at an image of one, or at a list of its names.</source>
        <translation>Le bouton au bas de la navigation nomme le disque et l’utilisateur. Cliquez dessus ou pressez Ctrl+O pour regarder un autre disque de Mac monté, une image d’un tel disque ou une liste de ses noms.</translation>
    </message>
    <message>
        <source>Is it safe to look?</source>
        <translation>Regarder est-il sans risque ?</translation>
    </message>
    <message>
        <source>Looking changes nothing on the disk. A scan reads the names of files and folders, never opens what it finds, and starts none of it. One thing leaves this computer: a request for the settings file of the maker, which says nothing about you or the disk. Whoever may watch a Mac notices nothing when you look at its disk from another computer; on the Mac itself they may see that Pryvane runs.</source>
        <translation>Regarder ne change rien sur le disque. Une analyse lit les noms des fichiers et des dossiers, n’ouvre rien de ce qu’elle trouve et n’en lance rien. Une seule chose quitte cet ordinateur : une requête pour le fichier de réglages de l’éditeur, qui ne dit rien de vous ni du disque. La personne qui surveille un Mac ne remarque rien quand vous regardez son disque depuis un autre ordinateur ; sur le Mac lui-même, elle peut voir que Pryvane est ouvert.</translation>
    </message>
    <message>
        <source>A quick scan looks in the places that known spyware uses. A deep scan looks there and at the name of every file you gave access to. The line under the result says what was looked at and what could not be; its button lists each place. Only a scan that could look everywhere says “Clean”.</source>
        <translation>Une analyse rapide regarde aux endroits que les logiciels espions connus utilisent. Une analyse approfondie y regarde aussi, et lit le nom de chaque fichier auquel vous avez donné accès. La ligne sous le résultat dit ce qui a été regardé et ce qui n’a pas pu l’être ; son bouton liste chaque emplacement. Seule une analyse qui a pu regarder partout dit « Sain ».</translation>
    </message>
    <message>
        <source>When something was found</source>
        <translation>Quand quelque chose a été trouvé</translation>
    </message>
    <message>
        <source>A finding is a name that is known, not proof. Press Return on it to see why it was found, and look at the chip beside it: an exact path speaks strongly, a bare substring may be a harmless file with an unlucky name. Nothing has to be done at once. Keep a record first: the report can be saved as a PDF and as JSON. If the Mac belongs to a company or a school, ask who looks after it.</source>
        <translation>Un résultat est un nom connu, pas une preuve. Pressez Entrée dessus pour voir pourquoi il a été trouvé, et regardez l’étiquette à côté : un chemin exact en dit long, une simple suite de lettres peut être un fichier inoffensif au nom malheureux. Rien ne presse. Gardez d’abord une trace : le rapport peut être enregistré en PDF et en JSON. Si le Mac appartient à une entreprise ou à une école, demandez qui s’en occupe.</translation>
    </message>
    <message>
        <source>If somebody may be watching you</source>
        <translation>Si quelqu’un vous surveille peut-être</translation>
    </message>
    <message>
        <source>Use another device to ask for help, one that this person has never had in their hands: what you do on the watched Mac may be seen, this program too. Do not confront them, and do not remove anything yet: whoever installed it may notice that it is gone, and it is evidence. Write down what you see, or keep the report on a disk that you alone have. A local advice centre, a support line for victims of violence or stalking, or the police can help you plan what comes next; find the number on the safer device. If you are in danger now, call your emergency number.</source>
        <translation>Demandez de l’aide depuis un autre appareil, que cette personne n’a jamais eu en main : ce que vous faites sur le Mac surveillé se voit peut-être, ce programme aussi. Ne la confrontez pas et ne supprimez encore rien : la personne qui l’a installé peut remarquer que cela a disparu, et c’est une preuve. Notez ce que vous voyez, ou gardez le rapport sur un disque que vous seul possédez. Une association près de chez vous, une ligne d’écoute pour victimes de violences ou de harcèlement, ou la police peuvent vous aider à préparer la suite ; cherchez le numéro sur l’appareil plus sûr. Si vous êtes en danger maintenant, appelez les urgences.</translation>
    </message>
    <message>
        <source>Who may watch</source>
        <translation>Qui peut regarder</translation>
    </message>
    <message>
        <source>Under Tools, “Who May Watch” lists which programs were allowed to see the screen, the keys or all files, what starts by itself, and who may come in from elsewhere. These are facts that the Mac itself keeps, without a verdict; each group says what it means and where it is changed.</source>
        <translation>Sous Outils, « Qui peut regarder » liste les programmes autorisés à voir l’écran, les touches ou tous les fichiers, ce qui démarre tout seul et qui peut entrer d’ailleurs. Ce sont des faits que le Mac note lui-même, sans verdict ; chaque groupe dit ce qu’il signifie et où cela se change.</translation>
    </message>
    <message>
        <source>Clear traces</source>
        <translation>Effacer des traces</translation>
    </message>
    <message>
        <source>What the words mean</source>
        <translation>Ce que veulent dire les mots</translation>
    </message>
    <message>
        <source>Finding: a file or folder whose place or name is known.
Evidence: how strongly that speaks; from exact path over known name in a launch folder and name fragment to bare substring.
Rule: what a place or name is compared with.
Launch folder: what lies in it starts by itself.
Deep scan: looks at every name, not in known places only.
Cannot be told, not known: Pryvane could not look, so it says neither yes nor no.
Incomplete: nothing was found, but not every place could be read.</source>
        <translation>Résultat : un fichier ou un dossier dont l’emplacement ou le nom est connu.
Indice : ce que cela vaut ; du chemin exact au nom dans dossier de lancement, à la partie de nom et à la simple suite de lettres.
Règle : ce à quoi un emplacement ou un nom est comparé.
Dossier de lancement : ce qui s’y trouve démarre tout seul.
Analyse approfondie : regarde chaque nom, pas seulement les endroits connus.
Impossible à dire, inconnu : Pryvane n’a pas pu regarder et ne dit donc ni oui ni non.
Incomplet : rien n’a été trouvé, mais tout n’a pas pu être lu.</translation>
    </message>
    <message>
        <source>How Pryvane works</source>
        <translation>Comment fonctionne Pryvane</translation>
    </message>
    <message>
        <source>Privacy lists what browsers and the system keep, with the space it takes. The sum above the list is what could be cleared; a place that two groups share, such as a browser’s cache inside the system’s, counts only once in it. Nothing is ticked for you, and a preview shows each location first.</source>
        <translation>« Confidentialité » liste ce que gardent les navigateurs et le système, avec la place que cela prend. La somme au-dessus de la liste est ce qui peut être effacé ; un emplacement que deux groupes partagent, comme le cache d’un navigateur dans celui du système, n’y compte qu’une fois. Rien n’est coché à votre place, et un aperçu montre d’abord chaque emplacement.</translation>
    </message>
    <message>
        <source>The dashboard</source>
        <translation>La vue d’ensemble</translation>
    </message>
    <message>
        <source>Findings of a scan</source>
        <translation>Les résultats d’une analyse</translation>
    </message>
    <message>
        <source>Who may watch, by group</source>
        <translation>Qui peut regarder, par groupes</translation>
    </message>
    <message>
        <source>Privacy, with its groups</source>
        <translation>Confidentialité et ses groupes</translation>
    </message>
    <message>
        <source>The list of reports</source>
        <translation>La liste des rapports</translation>
    </message>
    <message>
        <source>While Pryvane is running it can scan every 30 minutes, and at a time of day of your choice between two dates. It never raises its window for that.
With “Also when Pryvane is closed” your system starts a quick scan at the times of the schedule while you are logged in and Pryvane is not running. Its report is kept with the others. When you switch it off, or the schedule, nothing of it stays behind.</source>
        <translation>Tant que Pryvane est ouvert, il peut analyser toutes les 30 minutes, et à l’heure de votre choix entre deux dates. Sa fenêtre ne passe jamais devant pour cela.
Avec « Aussi quand Pryvane est fermé », votre système démarre une analyse rapide aux moments de la planification tant que votre session est ouverte et que Pryvane n’est pas en marche. Son rapport est conservé avec les autres. Si vous désactivez cette option, ou la planification, il n’en reste rien.</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>This computer</source>
        <translation>Cet ordinateur</translation>
    </message>
    <message>
        <source>Everyone</source>
        <translation>Tout le monde</translation>
    </message>
    <message>
        <source>every user</source>
        <translation>tous les utilisateurs</translation>
    </message>
    <message>
        <source>user %1</source>
        <translation>utilisateur %1</translation>
    </message>
    <message>
        <source>Keep a record in this folder</source>
        <translation>Garder une trace dans ce dossier</translation>
    </message>
    <message>
        <source>The record is in %1.</source>
        <translation>La trace est dans %1.</translation>
    </message>
    <message>
        <source>The record is not whole:%1</source>
        <translation>La trace n’est pas complète :%1</translation>
    </message>
    <message>
        <source>Export the reports to this folder</source>
        <translation>Exporter les rapports dans ce dossier</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Delete this report</source>
        <translation>Supprimer ce rapport</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Show this report&apos;s findings</source>
        <translation>Afficher les résultats de ce rapport</translation>
    </message>
    <message>
        <source>State</source>
        <translation>État</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Quand</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Mac and User</source>
        <translation>Mac et utilisateur</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Findings</source>
        <translation>Résultats</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>supprimé</translation>
    </message>
    <message>
        <source>not removed</source>
        <translation>non supprimé</translation>
    </message>
    <message>
        <source>still there</source>
        <translation>encore là</translation>
    </message>
    <message>
        <source>gone</source>
        <translation>disparu</translation>
    </message>
    <message>
        <source>not known</source>
        <translation>inconnu</translation>
    </message>
    <message>
        <source>Selected</source>
        <translation>Sélectionné</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Threat</source>
        <translation>Menace</translation>
    </message>
    <message>
        <source>Evidence</source>
        <translation>Indice</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Maintenant</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Emplacement</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Taille</translation>
    </message>
    <message>
        <source>%1: %2, %3 &quot;%4&quot;</source>
        <translation>%1 : %2, %3 « %4 »</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>Decision</source>
        <translation>Décision</translation>
    </message>
    <message>
        <source>What for</source>
        <translation>Pour quoi</translation>
    </message>
    <message>
        <source>Whose</source>
        <translation>À qui</translation>
    </message>
    <message>
        <source>On the disk</source>
        <translation>Sur le disque</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Quoi</translation>
    </message>
    <message>
        <source>Detail</source>
        <translation>Détail</translation>
    </message>
    <message>
        <source>Version, profile</source>
        <translation>Version, profil</translation>
    </message>
    <message>
        <source>To be cleared</source>
        <translation>À effacer</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Élément</translation>
    </message>
    <message>
        <source>Cannot be had back, so it is ticked by itself only.</source>
        <translation>Irrécupérable, il se coche donc seulement à part.</translation>
    </message>
    <message>
        <source>What of it cannot be had back stays when it is ticked with others.</source>
        <translation>Ce qui en est irrécupérable reste quand il est coché avec d’autres.</translation>
    </message>
    <message>
        <source>Not all of it could be looked at: %1.</source>
        <translation>Tout n’a pas pu être regardé : %1.</translation>
    </message>
    <message>
        <source>There is nothing to clear.</source>
        <translation>Il n’y a rien à effacer.</translation>
    </message>
    <message>
        <source>All browsers</source>
        <translation>Tous les navigateurs</translation>
    </message>
    <message>
        <source>%1 is running</source>
        <translation>%1 est ouvert</translation>
    </message>
    <message>
        <source>can be cleared</source>
        <translation>peut être effacé</translation>
    </message>
    <message>
        <source>What that means</source>
        <translation>Ce que cela signifie</translation>
    </message>
    <message>
        <source>Entries</source>
        <translation>Éléments</translation>
    </message>
    <message>
        <source>Cannot be had back</source>
        <translation>Irrécupérable</translation>
    </message>
    <message>
        <source>The rest</source>
        <translation>Le reste</translation>
    </message>
    <message>
        <source>Forecast</source>
        <translation>Prévision</translation>
    </message>
    <message>
        <source>already gone</source>
        <translation>déjà disparu</translation>
    </message>
    <message>
        <source>To be removed</source>
        <translation>À supprimer</translation>
    </message>
    <message>
        <source>can be removed</source>
        <translation>peut être supprimé</translation>
    </message>
    <message>
        <source>stays</source>
        <translation>reste</translation>
    </message>
    <message>
        <source>Look twice: %1</source>
        <translation>À regarder de près : %1</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtrer</translation>
    </message>
    <message>
        <source>Clear the filter</source>
        <translation>Effacer le filtre</translation>
    </message>
    <message>
        <source>On the disk: %1</source>
        <translation>Sur le disque : %1</translation>
    </message>
</context>
<context>
    <name>pryvane::AccessWindow</name>
    <message>
        <source>Welcome to Pryvane</source>
        <translation>Bienvenue dans Pryvane</translation>
    </message>
    <message>
        <source>It will look at %1, %2.</source>
        <translation>Il va regarder %1, %2.</translation>
    </message>
    <message>
        <source>What it looks at</source>
        <translation>Ce qu’il regarde</translation>
    </message>
    <message>
        <source>The names and places of files, launch agents, extensions and applications. Contents are never read to find spyware.</source>
        <translation>Les noms et emplacements des fichiers, agents de lancement, extensions et applications. Les contenus ne sont jamais lus pour trouver un logiciel espion.</translation>
    </message>
    <message>
        <source>What leaves this computer</source>
        <translation>Ce qui quitte cet ordinateur</translation>
    </message>
    <message>
        <source>One request for the maker&apos;s settings file, which carries nothing about you or this disk. Nothing else.</source>
        <translation>Une requête pour le fichier de réglages de l’éditeur, qui ne dit rien de vous ni de ce disque. Rien d’autre.</translation>
    </message>
    <message>
        <source>What it changes</source>
        <translation>Ce qu’il modifie</translation>
    </message>
    <message>
        <source>Nothing, unless you select a finding and confirm that it is to be removed.</source>
        <translation>Rien, sauf si vous sélectionnez un résultat et confirmez sa suppression.</translation>
    </message>
    <message>
        <source>Confirm Access</source>
        <translation>Confirmer l’accès</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>Autre…</translation>
    </message>
    <message>
        <source>Open an Image…</source>
        <translation>Ouvrir une image…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>This home</source>
        <translation>Ce dossier de départ</translation>
    </message>
    <message>
        <source>Every home</source>
        <translation>Tous les dossiers de départ</translation>
    </message>
    <message>
        <source>There is no folder %1 on this disk.</source>
        <translation>Il n’y a pas de dossier %1 sur ce disque.</translation>
    </message>
    <message>
        <source>%1, and the places that all users share.</source>
        <translation>%1, et les emplacements communs à tous les utilisateurs.</translation>
    </message>
    <message>
        <source>All of %1, and the places that all users share.</source>
        <translation>Tout %1, et les emplacements communs à tous les utilisateurs.</translation>
    </message>
    <message>
        <source>The whole disk</source>
        <translation>Le disque entier</translation>
    </message>
    <message>
        <source>Every home; a deep scan goes through every folder there is.</source>
        <translation>Tous les dossiers de départ ; une analyse approfondie parcourt tous les dossiers.</translation>
    </message>
    <message>
        <source>What may it look at?</source>
        <translation>Que peut-il regarder ?</translation>
    </message>
</context>
<context>
    <name>pryvane::BrowserPanelSheet</name>
    <message>
        <source>Quit these browsers first</source>
        <translation>Quittez d’abord ces navigateurs</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>While a browser runs it keeps its files open, and something was found among them. Quit it, then retry. Nothing is removed until then.</source>
        <translation>Tant qu’un navigateur est ouvert, il garde ses fichiers ouverts, et quelque chose a été trouvé parmi eux. Quittez-le, puis réessayez. Rien n’est supprimé d’ici là.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>pryvane::CleaningPreviewSheet</name>
    <message>
        <source>What would be cleared</source>
        <translation>Ce qui serait effacé</translation>
    </message>
    <message>
        <source>Items that would be cleared</source>
        <translation>Éléments qui seraient effacés</translation>
    </message>
    <message>
        <source>List each location</source>
        <translation>Lister chaque emplacement</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Clear for good</source>
        <translation>Effacer définitivement</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Leave these out</source>
        <translation>Les laisser de côté</translation>
    </message>
    <message>
        <source>Looking at what would go…</source>
        <translation>Examen de ce qui disparaîtrait…</translation>
    </message>
    <message>
        <source>Nothing goes to the Trash: what is cleared is gone.</source>
        <translation>Rien ne va à la corbeille : ce qui est effacé est perdu.</translation>
    </message>
    <message>
        <source>%1 cannot be had back once cleared.</source>
        <translation>%1 sera irrécupérable une fois effacé.</translation>
    </message>
    <message>
        <source>%1 will go: %2, %3</source>
        <translation>%1 vont disparaître : %2, %3</translation>
    </message>
    <message>
        <source>Quit %1 first, then retry. A running browser keeps its files open, so they stay.</source>
        <translation>Quittez d’abord %1, puis réessayez. Un navigateur ouvert garde ses fichiers, ils restent donc.</translation>
    </message>
</context>
<context>
    <name>pryvane::ClearedSheet</name>
    <message>
        <source>Item</source>
        <translation>Élément</translation>
    </message>
    <message>
        <source>Whose</source>
        <translation>À qui</translation>
    </message>
    <message>
        <source>Entries</source>
        <translation>Éléments</translation>
    </message>
    <message>
        <source>Freed</source>
        <translation>Libéré</translation>
    </message>
    <message>
        <source>Stayed</source>
        <translation>Resté</translation>
    </message>
    <message>
        <source>What was cleared</source>
        <translation>Ce qui a été effacé</translation>
    </message>
    <message>
        <source>The journal of removals keeps each location with what it took, and when it went.</source>
        <translation>Le journal des suppressions garde chaque emplacement, ce qu’il occupait et quand il a disparu.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>pryvane::ComparisonSheet</name>
    <message>
        <source>Change</source>
        <translation>Changement</translation>
    </message>
    <message>
        <source>Threat</source>
        <translation>Menace</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Emplacement</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Taille</translation>
    </message>
    <message>
        <source>%1 (%2, %3: %4)</source>
        <translation>%1 (%2, %3 : %4)</translation>
    </message>
    <message>
        <source>%1 new, %2 gone, %3 in both</source>
        <translation>%1 nouveaux, %2 disparus, %3 dans les deux</translation>
    </message>
    <message>
        <source>What changed</source>
        <translation>Ce qui a changé</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <translation>De %1 à %2</translation>
    </message>
    <message>
        <source>Filter by threat or location</source>
        <translation>Filtrer par menace ou emplacement</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>new</source>
        <translation>nouveau</translation>
    </message>
    <message>
        <source>gone</source>
        <translation>disparu</translation>
    </message>
    <message>
        <source>as before</source>
        <translation>comme avant</translation>
    </message>
</context>
<context>
    <name>pryvane::CoverageView</name>
    <message>
        <source>%1 signatures tested, %2 folders listed, %3 entries searched</source>
        <translation>%1 signatures testées, %2 dossiers listés, %3 éléments fouillés</translation>
    </message>
    <message>
        <source>%1 entries walked</source>
        <translation>%1 éléments parcourus</translation>
    </message>
    <message>
        <source>%1 seconds</source>
        <translation>%1 secondes</translation>
    </message>
    <message>
        <source>The system volume was not looked at: %1 signatures left out</source>
        <translation>Le volume système n’a pas été regardé : %1 signatures omises</translation>
    </message>
    <message>
        <source>    and %1 more</source>
        <translation>    et %1 de plus</translation>
    </message>
    <message>
        <source>Could not be read:</source>
        <translation>Illisible :</translation>
    </message>
    <message>
        <source>Applications that the list leaves out:</source>
        <translation>Applications omises de la liste :</translation>
    </message>
    <message>
        <source>There is no home folder %1</source>
        <translation>Il n’y a pas de dossier de départ %1</translation>
    </message>
    <message>
        <source>What was looked at</source>
        <translation>Ce qui a été regardé</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>pryvane::DashboardView</name>
    <message>
        <source>Look at Them</source>
        <translation>Voir les résultats</translation>
    </message>
    <message>
        <source>Deep scan</source>
        <translation>Analyse approfondie</translation>
    </message>
    <message>
        <source>Look for spyware</source>
        <translation>Chercher des logiciels espions</translation>
    </message>
    <message>
        <source>Real-time scan</source>
        <translation>Analyse en temps réel</translation>
    </message>
    <message>
        <source>A quick scan every 30 minutes while Pryvane is running.</source>
        <translation>Une analyse rapide toutes les 30 minutes tant que Pryvane est ouvert.</translation>
    </message>
    <message>
        <source>Dock icon</source>
        <translation>Icône du Dock</translation>
    </message>
    <message>
        <source>Show Pryvane among the open applications of the desktop.</source>
        <translation>Montrer Pryvane parmi les applications ouvertes du bureau.</translation>
    </message>
    <message>
        <source>Start at login</source>
        <translation>Démarrer à la connexion</translation>
    </message>
    <message>
        <source>Start Pryvane when you log in.</source>
        <translation>Démarrer Pryvane quand vous ouvrez votre session.</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>Schedule…</source>
        <translation>Programmer…</translation>
    </message>
    <message>
        <source>Scheduled scan</source>
        <translation>Analyse programmée</translation>
    </message>
    <message>
        <source>Not scanned yet</source>
        <translation>Pas encore analysé</translation>
    </message>
    <message>
        <source>A quick scan mostly takes less than a minute, and changes nothing on the disk.</source>
        <translation>Une analyse rapide prend le plus souvent moins d’une minute et ne change rien sur le disque.</translation>
    </message>
    <message>
        <source>This disk cannot be told from others, so what earlier scans found is in the reports only.</source>
        <translation>Ce disque ne peut être distingué d’autres ; ce que des analyses précédentes ont trouvé n’est donc que dans les rapports.</translation>
    </message>
    <message>
        <source>Last scan: %1</source>
        <translation>Dernière analyse : %1</translation>
    </message>
    <message>
        <source>The last scan found something</source>
        <translation>La dernière analyse a trouvé quelque chose</translation>
    </message>
    <message>
        <source>The last scan found nothing</source>
        <translation>La dernière analyse n’a rien trouvé</translation>
    </message>
    <message>
        <source>A scan is running</source>
        <translation>Une analyse est en cours</translation>
    </message>
    <message>
        <source>No scan is scheduled.</source>
        <translation>Aucune analyse n’est programmée.</translation>
    </message>
</context>
<context>
    <name>pryvane::FactsPage</name>
    <message numerus="yes">
        <source>and %n more places that could not be read</source>
        <translation>
            <numerusform>et %n autre emplacement qui n’a pas pu être lu</numerusform>
            <numerusform>et %n autres emplacements qui n’ont pas pu être lus</numerusform>
        </translation>
    </message>
    <message>
        <source>Reading what the disk says…</source>
        <translation>Lecture de ce que dit le disque…</translation>
    </message>
    <message>
        <source>This was not read. “Read again” tries once more.</source>
        <translation>Ceci n’a pas été lu. « Relire » essaie encore une fois.</translation>
    </message>
    <message>
        <source>Nothing fits what was chosen above.</source>
        <translation>Rien ne correspond à ce qui est choisi ci-dessus.</translation>
    </message>
    <message>
        <source>Nothing could be listed: not all places could be read.</source>
        <translation>Rien n’a pu être listé : tous les emplacements n’ont pas pu être lus.</translation>
    </message>
    <message>
        <source>The places were read, and nothing of this is in them.</source>
        <translation>Les emplacements ont été lus, et il n’y a rien de cela.</translation>
    </message>
    <message>
        <source>What does “%1” mean?</source>
        <translation>Que signifie « %1 » ?</translation>
    </message>
    <message>
        <source>Reveal in File Viewer</source>
        <translation>Montrer dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Copier le chemin</translation>
    </message>
    <message>
        <source>Copy All of It</source>
        <translation>Tout copier</translation>
    </message>
</context>
<context>
    <name>pryvane::FactsView</name>
    <message>
        <source>Filter by any word</source>
        <translation>Filtrer par n’importe quel mot</translation>
    </message>
    <message>
        <source>Only what is still there</source>
        <translation>Seulement ce qui est encore là</translation>
    </message>
    <message>
        <source>Read again</source>
        <translation>Relire</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Exporter…</translation>
    </message>
    <message>
        <source>Permissions</source>
        <translation>Autorisations</translation>
    </message>
    <message>
        <source>Start-up</source>
        <translation>Démarrage</translation>
    </message>
    <message>
        <source>Remote access</source>
        <translation>Accès à distance</translation>
    </message>
    <message>
        <source>Whose</source>
        <translation>À qui</translation>
    </message>
    <message>
        <source>Everyone</source>
        <translation>Tout le monde</translation>
    </message>
    <message>
        <source>The whole Mac</source>
        <translation>Tout le Mac</translation>
    </message>
    <message>
        <source>Show what was denied (%1)</source>
        <translation>Montrer ce qui a été refusé (%1)</translation>
    </message>
    <message>
        <source>Export this list</source>
        <translation>Exporter cette liste</translation>
    </message>
    <message>
        <source>Text (*.txt)</source>
        <translation>Texte (*.txt)</translation>
    </message>
    <message>
        <source>JSON (*.json)</source>
        <translation>JSON (*.json)</translation>
    </message>
    <message>
        <source>CSV (*.csv)</source>
        <translation>CSV (*.csv)</translation>
    </message>
</context>
<context>
    <name>pryvane::FindingsPane</name>
    <message>
        <source>Findings</source>
        <translation>Résultats</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>Tout sélectionner</translation>
    </message>
    <message>
        <source>Filter by threat or location</source>
        <translation>Filtrer par menace ou emplacement</translation>
    </message>
    <message>
        <source>Group by</source>
        <translation>Grouper par</translation>
    </message>
    <message>
        <source>No groups</source>
        <translation>Sans groupes</translation>
    </message>
    <message>
        <source>Group by threat</source>
        <translation>Grouper par menace</translation>
    </message>
    <message>
        <source>Group by folder</source>
        <translation>Grouper par dossier</translation>
    </message>
    <message>
        <source>Nothing fits the filter.</source>
        <translation>Rien ne correspond au filtre.</translation>
    </message>
    <message>
        <source>%1 of %2 selected</source>
        <translation>%1 sur %2 sélectionnés</translation>
    </message>
    <message>
        <source>Why was this found?</source>
        <translation>Pourquoi ceci a-t-il été trouvé ?</translation>
    </message>
    <message>
        <source>Reveal in File Viewer</source>
        <translation>Montrer dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Copier le chemin</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Pryvane looks at names only. What it says here rests on where the item lies and what it is called, not on what is inside.</source>
        <translation>Pryvane ne regarde que les noms. Ce qui est dit ici repose sur l’emplacement et le nom de l’élément, pas sur ce qu’il contient.</translation>
    </message>
</context>
<context>
    <name>pryvane::GroupList</name>
    <message>
        <source>Groups</source>
        <translation>Groupes</translation>
    </message>
</context>
<context>
    <name>pryvane::HelpWindow</name>
    <message>
        <source>Pryvane Help</source>
        <translation>Aide de Pryvane</translation>
    </message>
    <message>
        <source>Guide</source>
        <translation>Guide</translation>
    </message>
</context>
<context>
    <name>pryvane::InventoryView</name>
    <message>
        <source>Inventory</source>
        <translation>Inventaire</translation>
    </message>
    <message>
        <source>Filter by name or location</source>
        <translation>Filtrer par nom ou emplacement</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Gather again</source>
        <translation>Relever à nouveau</translation>
    </message>
    <message>
        <source>List</source>
        <translation>Liste</translation>
    </message>
    <message>
        <source>All lists</source>
        <translation>Toutes les listes</translation>
    </message>
    <message>
        <source>Gathering</source>
        <translation>Relevé</translation>
    </message>
    <message>
        <source>What is installed around the browsers and started with the system. Being listed says nothing against it: nothing here is judged, and nothing is changed.</source>
        <translation>Ce qui est installé autour des navigateurs et démarre avec le système. Figurer ici ne veut rien dire de mal : rien n’est jugé, rien n’est modifié.</translation>
    </message>
    <message>
        <source>Gathering: %1</source>
        <translation>Relevé en cours : %1</translation>
    </message>
    <message>
        <source>%1 entries in all</source>
        <translation>%1 éléments en tout</translation>
    </message>
    <message>
        <source>%1 entries; not all lists were gathered</source>
        <translation>%1 éléments ; toutes les listes n’ont pas été relevées</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Looking for what is installed…</source>
        <translation>Recherche de ce qui est installé…</translation>
    </message>
    <message>
        <source>Nothing fits the filter.</source>
        <translation>Rien ne correspond au filtre.</translation>
    </message>
    <message>
        <source>Nothing of this is installed.</source>
        <translation>Rien de cela n’est installé.</translation>
    </message>
    <message>
        <source>Nothing was gathered yet.</source>
        <translation>Rien n’a encore été relevé.</translation>
    </message>
    <message>
        <source>Reveal in File Viewer</source>
        <translation>Montrer dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Copier le chemin</translation>
    </message>
</context>
<context>
    <name>pryvane::MainWindow</name>
    <message>
        <source>Looking at %1, %2</source>
        <translation>Regarde %1, %2</translation>
    </message>
    <message>
        <source>Choose another volume or user</source>
        <translation>Choisir un autre volume ou un autre utilisateur</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenêtre</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Apparence</translation>
    </message>
</context>
<context>
    <name>pryvane::MenuBar</name>
    <message>
        <source>Open…</source>
        <translation>Ouvrir…</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Imprimer…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>As the Desktop</source>
        <translation>Comme le bureau</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Clair</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Sombre</translation>
    </message>
    <message>
        <source>More Contrast</source>
        <translation>Plus de contraste</translation>
    </message>
    <message>
        <source>Pryvane Help</source>
        <translation>Aide de Pryvane</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Affichage</translation>
    </message>
    <message>
        <source>Find in List</source>
        <translation>Chercher dans la liste</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Apparence</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenêtre</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
</context>
<context>
    <name>pryvane::OpeningWindow</name>
    <message>
        <source>Unlock</source>
        <translation>Déverrouiller</translation>
    </message>
    <message>
        <source>Reading names</source>
        <translation>Lecture des noms</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Mot de passe</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>The password does not unlock this disk.</source>
        <translation>Ce mot de passe ne déverrouille pas ce disque.</translation>
    </message>
    <message>
        <source>The disk in this image is encrypted. Its password unlocks it.</source>
        <translation>Le disque de cette image est chiffré. Son mot de passe le déverrouille.</translation>
    </message>
</context>
<context>
    <name>pryvane::PagesView</name>
    <message>
        <source>The pages as they will be printed</source>
        <translation>Les pages telles qu’elles seront imprimées</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Page %1 sur %2</translation>
    </message>
</context>
<context>
    <name>pryvane::PlanSheet</name>
    <message>
        <source>%1 selected: %2 entries, %3</source>
        <translation>%1 sélectionnés : %2 éléments, %3</translation>
    </message>
    <message>
        <source>; %1 cannot be removed as things are</source>
        <translation>; %1 ne peuvent pas être supprimés en l’état</translation>
    </message>
    <message>
        <source>What would be removed</source>
        <translation>Ce qui serait supprimé</translation>
    </message>
    <message>
        <source>If somebody may be watching this Mac: removing destroys evidence of it, and whoever installed it may notice. Keep a record first, and think of your safety before you go on.</source>
        <translation>Si quelqu’un surveille peut-être ce Mac : supprimer détruit des preuves, et la personne qui a tout installé peut s’en apercevoir. Gardez d’abord une trace, et pensez à votre sécurité avant de continuer.</translation>
    </message>
    <message>
        <source>Keep a Record First…</source>
        <translation>Garder d’abord une trace…</translation>
    </message>
    <message>
        <source>Leave these out</source>
        <translation>Les laisser de côté</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Remove for good…</source>
        <translation>Supprimer définitivement…</translation>
    </message>
    <message>
        <source>Writes the report as a PDF and as JSON</source>
        <translation>Écrit le rapport en PDF et en JSON</translation>
    </message>
    <message>
        <source>Group by</source>
        <translation>Grouper par</translation>
    </message>
    <message>
        <source>No groups</source>
        <translation>Sans groupes</translation>
    </message>
    <message>
        <source>Group by rule</source>
        <translation>Grouper par règle</translation>
    </message>
    <message>
        <source>Group by folder</source>
        <translation>Grouper par dossier</translation>
    </message>
    <message>
        <source>Looking at what would go…</source>
        <translation>Examen de ce qui disparaîtrait…</translation>
    </message>
    <message>
        <source>Nothing goes to a trash: what is removed is gone. Links are removed, never what they lead to.</source>
        <translation>Rien ne va à la corbeille : ce qui est supprimé est perdu. Les liens sont supprimés, jamais ce vers quoi ils mènent.</translation>
    </message>
    <message>
        <source>1 of these rests on a part of a name alone. It may well be something harmless, so it is not ticked: look at it first.</source>
        <translation>1 de ces éléments repose seulement sur une partie d’un nom. Il est peut-être tout à fait inoffensif et n’est donc pas coché : regardez-le d’abord.</translation>
    </message>
    <message>
        <source>%1 of these rest on a part of a name alone. They may well be something harmless, so they are not ticked: look at them first.</source>
        <translation>%1 de ces éléments reposent seulement sur une partie d’un nom. Ils sont peut-être tout à fait inoffensifs et ne sont donc pas cochés : regardez-les d’abord.</translation>
    </message>
</context>
<context>
    <name>pryvane::PreviewSheet</name>
    <message>
        <source>Print this report</source>
        <translation>Imprimer ce rapport</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Imprimer…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Preparing the pages…</source>
        <translation>Préparation des pages…</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Page %1 sur %2</translation>
    </message>
    <message>
        <source>The pages cannot be shown: %1</source>
        <translation>Les pages ne peuvent pas être affichées : %1</translation>
    </message>
</context>
<context>
    <name>pryvane::PrivacyPane</name>
    <message>
        <source>Items</source>
        <translation>Éléments</translation>
    </message>
    <message>
        <source>Preview…</source>
        <translation>Aperçu…</translation>
    </message>
    <message>
        <source>Clear…</source>
        <translation>Effacer…</translation>
    </message>
    <message>
        <source>Browser data, caches, logs and the Trash are listed here with the space they take, once they are measured.</source>
        <translation>Les données des navigateurs, caches, journaux et la corbeille figurent ici avec la place qu’ils prennent, une fois mesurés.</translation>
    </message>
    <message>
        <source>Lists each location that would go</source>
        <translation>Liste chaque emplacement qui disparaîtrait</translation>
    </message>
    <message>
        <source>Asks once more before anything goes</source>
        <translation>Demande encore une fois avant que quoi que ce soit disparaisse</translation>
    </message>
    <message>
        <source>%1 ticked</source>
        <translation>%1 cochés</translation>
    </message>
    <message>
        <source>Nothing is ticked</source>
        <translation>Rien n’est coché</translation>
    </message>
    <message>
        <source>Point at an item to see what it holds.</source>
        <translation>Pointez un élément pour voir ce qu’il contient.</translation>
    </message>
    <message>
        <source>What stayed</source>
        <translation>Ce qui est resté</translation>
    </message>
    <message>
        <source>Why it stayed, and what to do</source>
        <translation>Pourquoi c’est resté, et que faire</translation>
    </message>
</context>
<context>
    <name>pryvane::RemoteDesktopCell</name>
    <message>
        <source>How to switch it off</source>
        <translation>Le désactiver…</translation>
    </message>
    <message>
        <source>Ignore from now on</source>
        <translation>Ignorer désormais</translation>
    </message>
    <message>
        <source>Opens Apple&apos;s article in the web browser</source>
        <translation>Ouvre l’article d’Apple dans le navigateur web</translation>
    </message>
    <message>
        <source>Apple Remote Desktop is set up</source>
        <translation>Apple Remote Desktop est configuré</translation>
    </message>
    <message>
        <source>Apple Remote Desktop is ignored</source>
        <translation>Apple Remote Desktop est ignoré</translation>
    </message>
    <message>
        <source>Somebody may see and control this Mac from afar. It is switched off in the Mac&apos;s settings.</source>
        <translation>Quelqu’un peut peut-être voir et contrôler ce Mac à distance. Cela se désactive dans les réglages du Mac.</translation>
    </message>
    <message>
        <source>Scans do not look for it. Untick the box, and the next one does.</source>
        <translation>Les analyses ne le cherchent pas. Décochez la case, et la prochaine le fera.</translation>
    </message>
</context>
<context>
    <name>pryvane::RemovalProgressView</name>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Stop the removal</source>
        <translation>Arrêter la suppression</translation>
    </message>
    <message>
        <source>Removal progress</source>
        <translation>Progression de la suppression</translation>
    </message>
    <message>
        <source>Removing: %1 of %2</source>
        <translation>Suppression : %1 sur %2</translation>
    </message>
</context>
<context>
    <name>pryvane::ReportBrowserView</name>
    <message>
        <source>Export this report</source>
        <translation>Exporter ce rapport</translation>
    </message>
    <message>
        <source>%1 (*.%2)</source>
        <translation>%1 (*.%2)</translation>
    </message>
</context>
<context>
    <name>pryvane::ReportDetailsPane</name>
    <message>
        <source>%1 (%2 listed)</source>
        <translation>%1 (%2 listés)</translation>
    </message>
    <message>
        <source>Reports</source>
        <translation>Rapports</translation>
    </message>
    <message>
        <source>Back to the reports</source>
        <translation>Retour aux rapports</translation>
    </message>
    <message>
        <source>Print…</source>
        <translation>Imprimer…</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>As %1…</source>
        <translation>En %1…</translation>
    </message>
    <message>
        <source>Delete…</source>
        <translation>Supprimer…</translation>
    </message>
    <message>
        <source>Findings:</source>
        <translation>Résultats :</translation>
    </message>
    <message>
        <source>Start:</source>
        <translation>Début :</translation>
    </message>
    <message>
        <source>What stayed…</source>
        <translation>Ce qui est resté…</translation>
    </message>
    <message>
        <source>Remove…</source>
        <translation>Supprimer…</translation>
    </message>
    <message>
        <source>This scan found nothing.</source>
        <translation>Cette analyse n’a rien trouvé.</translation>
    </message>
</context>
<context>
    <name>pryvane::ReportListPane</name>
    <message>
        <source>Reports</source>
        <translation>Rapports</translation>
    </message>
    <message>
        <source>No report fits the filter.</source>
        <translation>Aucun rapport ne correspond au filtre.</translation>
    </message>
    <message>
        <source>Reading the reports…</source>
        <translation>Lecture des rapports…</translation>
    </message>
    <message>
        <source>A scan is running. Its report comes at its end.</source>
        <translation>Une analyse est en cours. Son rapport viendra à la fin.</translation>
    </message>
    <message>
        <source>Search by kind, date, Mac or threat</source>
        <translation>Chercher par type, date, Mac ou menace</translation>
    </message>
    <message>
        <source>Which reports are shown</source>
        <translation>Quels rapports sont affichés</translation>
    </message>
    <message>
        <source>All reports</source>
        <translation>Tous les rapports</translation>
    </message>
    <message>
        <source>Found</source>
        <translation>Trouvé</translation>
    </message>
    <message>
        <source>Clean</source>
        <translation>Sain</translation>
    </message>
    <message>
        <source>Group by</source>
        <translation>Grouper par</translation>
    </message>
    <message>
        <source>No groups</source>
        <translation>Sans groupes</translation>
    </message>
    <message>
        <source>Group by Mac</source>
        <translation>Grouper par Mac</translation>
    </message>
    <message>
        <source>Compares two selected reports, or the selected one with the one before it of the same Mac</source>
        <translation>Compare deux rapports sélectionnés, ou celui qui est sélectionné avec le précédent du même Mac</translation>
    </message>
    <message>
        <source>Scan Now</source>
        <translation>Analyser maintenant</translation>
    </message>
    <message>
        <source>No reports yet: every scan leaves one here.</source>
        <translation>Pas encore de rapports : chaque analyse en laisse un ici.</translation>
    </message>
    <message>
        <source>1 report</source>
        <translation>1 rapport</translation>
    </message>
    <message>
        <source>%1 reports</source>
        <translation>%1 rapports</translation>
    </message>
    <message>
        <source>, none of this disk</source>
        <translation>, aucun de ce disque</translation>
    </message>
    <message>
        <source>, %1 of this disk</source>
        <translation>, %1 de ce disque</translation>
    </message>
    <message>
        <source>Compare these two</source>
        <translation>Comparer ces deux</translation>
    </message>
    <message>
        <source>Compare with previous</source>
        <translation>Comparer au précédent</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Export These %1</source>
        <translation>Exporter ces %1</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exporter</translation>
    </message>
    <message>
        <source>As %1…</source>
        <translation>En %1…</translation>
    </message>
    <message>
        <source>Delete These %1…</source>
        <translation>Supprimer ces %1…</translation>
    </message>
    <message>
        <source>Delete…</source>
        <translation>Supprimer…</translation>
    </message>
</context>
<context>
    <name>pryvane::ScanProgressView</name>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Stop the scan</source>
        <translation>Arrêter l’analyse</translation>
    </message>
    <message>
        <source>Scan progress</source>
        <translation>Progression de l’analyse</translation>
    </message>
    <message numerus="yes">
        <source>%n found</source>
        <translation>
            <numerusform>%n trouvé</numerusform>
            <numerusform>%n trouvés</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 entries</source>
        <translation>%1 éléments</translation>
    </message>
    <message>
        <source>%1 entries a second</source>
        <translation>%1 éléments par seconde</translation>
    </message>
    <message>
        <source>about %1 left</source>
        <translation>encore %1 environ</translation>
    </message>
</context>
<context>
    <name>pryvane::ScanView</name>
    <message>
        <source>Scan Now</source>
        <translation>Analyser maintenant</translation>
    </message>
    <message>
        <source>Remove…</source>
        <translation>Supprimer…</translation>
    </message>
    <message>
        <source>What stayed…</source>
        <translation>Ce qui est resté…</translation>
    </message>
    <message>
        <source>View Report</source>
        <translation>Voir le rapport</translation>
    </message>
    <message>
        <source>What was looked at</source>
        <translation>Ce qui a été regardé</translation>
    </message>
    <message>
        <source>There was no scan: %1.</source>
        <translation>Il n’y a pas eu d’analyse : %1.</translation>
    </message>
    <message>
        <source>The report of this scan is shown here but could not be stored: %1</source>
        <translation>Le rapport de cette analyse est affiché ici mais n’a pas pu être enregistré : %1</translation>
    </message>
    <message>
        <source>Removing what you selected</source>
        <translation>Suppression de votre sélection</translation>
    </message>
    <message>
        <source>Looking for spyware</source>
        <translation>Recherche de logiciels espions</translation>
    </message>
    <message>
        <source>Nothing found so far.</source>
        <translation>Rien trouvé jusqu’ici.</translation>
    </message>
    <message>
        <source>This scan found nothing where it looked.</source>
        <translation>Cette analyse n’a rien trouvé là où elle a regardé.</translation>
    </message>
    <message>
        <source>Findings are listed here, each with the reason why it was found.</source>
        <translation>Les résultats sont listés ici, chacun avec la raison pour laquelle il a été trouvé.</translation>
    </message>
</context>
<context>
    <name>pryvane::ScheduleSheet</name>
    <message>
        <source>Scheduled scan</source>
        <translation>Analyse programmée</translation>
    </message>
    <message>
        <source>Scan on a schedule</source>
        <translation>Analyser à heures fixes</translation>
    </message>
    <message>
        <source>While Pryvane is running, with its window or without.</source>
        <translation>Tant que Pryvane est ouvert, avec ou sans sa fenêtre.</translation>
    </message>
    <message>
        <source>First day</source>
        <translation>Premier jour</translation>
    </message>
    <message>
        <source>Last day</source>
        <translation>Dernier jour</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Time of day</source>
        <translation>Heure</translation>
    </message>
    <message>
        <source>Repeat</source>
        <translation>Répéter</translation>
    </message>
    <message>
        <source>Also when Pryvane is closed</source>
        <translation>Aussi quand Pryvane est fermé</translation>
    </message>
</context>
<context>
    <name>pryvane::ToolsStatus</name>
    <message>
        <source>Stop</source>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Measure again</source>
        <translation>Mesurer à nouveau</translation>
    </message>
    <message>
        <source>What went…</source>
        <translation>Ce qui est parti…</translation>
    </message>
    <message>
        <source>What stayed…</source>
        <translation>Ce qui est resté…</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Stop clearing</source>
        <translation>Arrêter l’effacement</translation>
    </message>
    <message>
        <source>Stop measuring</source>
        <translation>Arrêter la mesure</translation>
    </message>
    <message>
        <source>Measure</source>
        <translation>Mesurer</translation>
    </message>
    <message>
        <source>Measuring: %1 so far</source>
        <translation>Mesure : %1 jusqu’ici</translation>
    </message>
    <message>
        <source>Measuring what can be cleared</source>
        <translation>Mesure de ce qui peut être effacé</translation>
    </message>
    <message>
        <source>What has been cleared stays cleared, even after a stop.</source>
        <translation>Ce qui a été effacé le reste, même après un arrêt.</translation>
    </message>
    <message>
        <source>Clearing what you ticked</source>
        <translation>Effacement de ce que vous avez coché</translation>
    </message>
    <message>
        <source>%1 can be cleared</source>
        <translation>%1 peuvent être effacés</translation>
    </message>
    <message>
        <source>There is nothing to clear</source>
        <translation>Il n’y a rien à effacer</translation>
    </message>
    <message>
        <source>Nothing to clear was found</source>
        <translation>Rien à effacer n’a été trouvé</translation>
    </message>
    <message>
        <source>Not every folder could be looked at; the items say which.</source>
        <translation>Tous les dossiers n’ont pas pu être regardés ; les éléments disent lesquels.</translation>
    </message>
    <message>
        <source>There are more profiles or folders than were looked at.</source>
        <translation>Il y a plus de profils ou de dossiers que ce qui a été regardé.</translation>
    </message>
    <message>
        <source>Tick what you want to be rid of. Nothing is ticked for you, and nothing goes before you have seen it.</source>
        <translation>Cochez ce dont vous voulez vous défaire. Rien n’est coché à votre place, et rien ne disparaît avant que vous l’ayez vu.</translation>
    </message>
    <message>
        <source>All that was looked at is empty or not there.</source>
        <translation>Tout ce qui a été regardé est vide ou absent.</translation>
    </message>
    <message>
        <source>Stopped: %1 measured</source>
        <translation>Arrêté : %1 mesurés</translation>
    </message>
    <message>
        <source>Not measured yet</source>
        <translation>Pas encore mesuré</translation>
    </message>
    <message>
        <source>Groups that are not listed were not reached.</source>
        <translation>Les groupes absents de la liste n’ont pas été atteints.</translation>
    </message>
    <message>
        <source>Measuring reads sizes only, never what is in a file.</source>
        <translation>La mesure ne lit que les tailles, jamais ce qu’il y a dans un fichier.</translation>
    </message>
    <message>
        <source>Looking for what is there</source>
        <translation>Recherche de ce qui est là</translation>
    </message>
    <message>
        <source>%1 of %2, %3 looked at</source>
        <translation>%1 sur %2, %3 regardés</translation>
    </message>
    <message>
        <source>%1, %2 cleared.</source>
        <translation>%1, %2 effacés.</translation>
    </message>
    <message>
        <source>%1 stayed.</source>
        <translation>%1 restés.</translation>
    </message>
    <message>
        <source>A place that two groups share is counted once.</source>
        <translation>Un emplacement commun à deux groupes compte une fois.</translation>
    </message>
</context>
<context>
    <name>pryvane::ToolsView</name>
    <message>
        <source>Privacy</source>
        <translation>Confidentialité</translation>
    </message>
    <message>
        <source>Inventory</source>
        <translation>Inventaire</translation>
    </message>
    <message>
        <source>Who May Watch</source>
        <translation>Qui peut regarder</translation>
    </message>
</context>
<context>
    <name>pryvane::VolumeSheet</name>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Choose Folder…</source>
        <translation>Choisir un dossier…</translation>
    </message>
    <message>
        <source>Choose File…</source>
        <translation>Choisir un fichier…</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Mot de passe</translation>
    </message>
    <message>
        <source>Unlock</source>
        <translation>Déverrouiller</translation>
    </message>
    <message>
        <source>User</source>
        <translation>Utilisateur</translation>
    </message>
    <message>
        <source>Reading names</source>
        <translation>Lecture des noms</translation>
    </message>
    <message>
        <source>Disk</source>
        <translation>Disque</translation>
    </message>
    <message>
        <source>A folder where a Mac&apos;s disk is mounted stands for that Mac&apos;s root, and what is found there can be removed. A file is an image of a disk, or a list of its names: it is only read.</source>
        <translation>Un dossier où est monté le disque d’un Mac représente la racine de ce Mac, et ce qui y est trouvé peut être supprimé. Un fichier est une image d’un disque ou une liste de ses noms : il est seulement lu.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Everyone</source>
        <translation>Tout le monde</translation>
    </message>
    <message>
        <source>The disk in this image is encrypted. Its password unlocks it.</source>
        <translation>Le disque de cette image est chiffré. Son mot de passe le déverrouille.</translation>
    </message>
    <message>
        <source>The password does not unlock this disk.</source>
        <translation>Ce mot de passe ne déverrouille pas ce disque.</translation>
    </message>
    <message>
        <source>There is no folder &quot;Users&quot; with accounts here, so this may not be the root of a Mac&apos;s disk.</source>
        <translation>Il n’y a pas ici de dossier « Users » avec des comptes ; ce n’est peut-être pas la racine du disque d’un Mac.</translation>
    </message>
</context>
<context>
    <name>pryvane::ui::Navigation</name>
    <message>
        <source>Screens</source>
        <translation>Écrans</translation>
    </message>
</context>
<context>
    <name>pryvane::ui::ReasonsSheet</name>
    <message>
        <source>What could not be removed</source>
        <translation>Ce qui n’a pas pu être supprimé</translation>
    </message>
    <message>
        <source>Why it stayed, and what to do</source>
        <translation>Pourquoi c’est resté, et que faire</translation>
    </message>
    <message>
        <source>Item</source>
        <translation>Élément</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Emplacement</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>pryvane::ui::Spinner</name>
    <message>
        <source>Working</source>
        <translation>En cours</translation>
    </message>
</context>
<context>
    <name>pryvane::ui::TitleBar</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Minimise</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Maximise</source>
        <translation>Agrandir</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurer</translation>
    </message>
</context>
</TS>
