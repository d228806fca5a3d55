<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_US">
<context>
    <name>CDlgLayPropFilter</name>
    <message>
        <source>Layer Filter Properties</source>
        <translation>Eigenschaften des Layerfilters</translation>
    </message>
    <message>
        <source>The table cannot show all conditions of this filter. They stay as they are; only the name can be changed.</source>
        <translation>Die Tabelle kann nicht alle Bedingungen dieses Filters zeigen. Sie bleiben, wie sie sind; nur der Name lässt sich ändern.</translation>
    </message>
    <message>
        <source>The drawing can keep these conditions, but the table cannot show them all again: once saved, they cannot be edited here any more.</source>
        <translation>Die Zeichnung kann diese Bedingungen speichern, aber die Tabelle kann sie nicht alle wieder zeigen: Einmal gespeichert, lassen sie sich hier nicht mehr bearbeiten.</translation>
    </message>
    <message>
        <source>Filter &amp;preview: %1 of %2 layers</source>
        <translation>&amp;Vorschau des Filters: %1 von %2 Layern</translation>
    </message>
    <message>
        <source>Filter &amp;name:</source>
        <translation>Filter&amp;name:</translation>
    </message>
    <message>
        <source>Filter name</source>
        <translation>Filtername</translation>
    </message>
    <message>
        <source>Filter &amp;definition:</source>
        <translation>Filter&amp;definition:</translation>
    </message>
    <message>
        <source>Filter definition</source>
        <translation>Filterdefinition</translation>
    </message>
    <message>
        <source>Some conditions are about viewports. They count, but their columns are shown only while a layout is current.</source>
        <translation>Einige Bedingungen betreffen Ansichtsfenster. Sie gelten, aber ihre Spalten sind nur zu sehen, während ein Layout aktuell ist.</translation>
    </message>
    <message>
        <source>Layers that the filter shows</source>
        <translation>Layer, die der Filter zeigt</translation>
    </message>
</context>
<context>
    <name>CDragDropUtility</name>
    <message>
        <source>%1 layers</source>
        <translation>%1 Layer</translation>
    </message>
</context>
<context>
    <name>CEdLayStateDlg</name>
    <message>
        <source>Edit Layer State: %1</source>
        <translation>Layerstatus bearbeiten: %1</translation>
    </message>
    <message>
        <source>Layers in the state</source>
        <translation>Layer im Status</translation>
    </message>
    <message>
        <source>La&amp;yers in the state:</source>
        <translation>La&amp;yer im Status:</translation>
    </message>
    <message>
        <source>&amp;Add Layers...</source>
        <translation>Layer &amp;hinzufügen...</translation>
    </message>
    <message>
        <source>&amp;Remove Layers</source>
        <translation>Layer &amp;entfernen</translation>
    </message>
    <message>
        <source>Add layers</source>
        <translation>Layer hinzufügen</translation>
    </message>
    <message>
        <source>Remove layers</source>
        <translation>Layer entfernen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>CFilterExamplesBtn</name>
    <message>
        <source>Layers whose names begin with A-</source>
        <translation>Layer, deren Namen mit A- beginnen</translation>
    </message>
    <message>
        <source>Layer Name &lt;b&gt;A-*&lt;/b&gt;</source>
        <translation>Layername &lt;b&gt;A-*&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Those of them that are frozen</source>
        <translation>Davon jene, die gefroren sind</translation>
    </message>
    <message>
        <source>Layer Name &lt;b&gt;A-*&lt;/b&gt;, Freeze &lt;b&gt;frozen&lt;/b&gt;</source>
        <translation>Layername &lt;b&gt;A-*&lt;/b&gt;, Frieren &lt;b&gt;gefroren&lt;/b&gt;</translation>
    </message>
    <message>
        <source>All layers but these</source>
        <translation>Alle Layer außer diesen</translation>
    </message>
    <message>
        <source>Layer Name &lt;b&gt;~A-*&lt;/b&gt;</source>
        <translation>Layername &lt;b&gt;~A-*&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Layers that are red or blue, and in use</source>
        <translation>Layer, die rot oder blau sind und verwendet werden</translation>
    </message>
    <message>
        <source>Line 1: Status &lt;b&gt;in use&lt;/b&gt;, Color &lt;b&gt;red&lt;/b&gt;&lt;br/&gt;Line 2: Status &lt;b&gt;in use&lt;/b&gt;, Color &lt;b&gt;blue&lt;/b&gt;</source>
        <translation>Zeile 1: Status &lt;b&gt;verwendet&lt;/b&gt;, Farbe &lt;b&gt;rot&lt;/b&gt;&lt;br/&gt;Zeile 2: Status &lt;b&gt;verwendet&lt;/b&gt;, Farbe &lt;b&gt;blau&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Layers of floors 1 to 3</source>
        <translation>Layer der Geschosse 1 bis 3</translation>
    </message>
    <message>
        <source>Layer Name &lt;b&gt;*FLOOR[123]*&lt;/b&gt;</source>
        <translation>Layername &lt;b&gt;*GESCHOSS[123]*&lt;/b&gt;</translation>
    </message>
    <message>
        <source>E&amp;xamples</source>
        <translation>&amp;Beispiele</translation>
    </message>
    <message>
        <source>Examples of filters</source>
        <translation>Beispiele für Filter</translation>
    </message>
</context>
<context>
    <name>CLSImportPromptDlg</name>
    <message>
        <source>Layer State Imported</source>
        <translation>Layerstatus importiert</translation>
    </message>
    <message>
        <source>The layer state &apos;%s&apos; was imported. Do you want to restore it now?</source>
        <translation>Der Layerstatus &apos;%s&apos; wurde importiert. Möchten Sie ihn jetzt wiederherstellen?</translation>
    </message>
    <message>
        <source>&amp;Restore State</source>
        <translation>Status &amp;wiederherstellen</translation>
    </message>
    <message>
        <source>Restore state</source>
        <translation>Status wiederherstellen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>CLayPropFilterEdBtn</name>
    <message>
        <source>Pick a value</source>
        <translation>Wert auswählen</translation>
    </message>
</context>
<context>
    <name>CLayPropFilterEdCombo</name>
    <message>
        <source>not set</source>
        <translation>nicht gesetzt</translation>
    </message>
</context>
<context>
    <name>CLayPropFilterEdListCtrl</name>
    <message>
        <source>Filter line commands</source>
        <translation>Befehle für Filterzeilen</translation>
    </message>
</context>
<context>
    <name>CLayStateImportDlg</name>
    <message>
        <source>Select Layer States</source>
        <translation>Layerstatus auswählen</translation>
    </message>
    <message>
        <source>Layer states in the file</source>
        <translation>Layerstatus in der Datei</translation>
    </message>
    <message>
        <source>Layer &amp;states to import:</source>
        <translation>Zu importierende Layer&amp;status:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>CLayStateMgrAddDlg</name>
    <message>
        <source>Add Layers to Layer State</source>
        <translation>Layer zum Layerstatus hinzufügen</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>Layer</translation>
    </message>
    <message>
        <source>&amp;Layers to add to the state:</source>
        <translation>Zum Status hinzuzufügende &amp;Layer:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>CLayerListCtrl</name>
    <message>
        <source>Layers</source>
        <translation>Layer</translation>
    </message>
</context>
<context>
    <name>CLayerPaneView</name>
    <message>
        <source>Displayed layers</source>
        <translation>Angezeigte Layer</translation>
    </message>
    <message>
        <source>Current layer</source>
        <translation>Aktueller Layer</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Layer filters</source>
        <translation>Layerfilter</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>Layer</translation>
    </message>
    <message>
        <source>Palette</source>
        <translation>Palette</translation>
    </message>
    <message>
        <source>Invert filter</source>
        <translation>Filter umkehren</translation>
    </message>
    <message>
        <source>Search/Lists the layers whose names match. * stands for any characters, ? for one.</source>
        <translation>Suchen/Führt Layer auf, deren Namen passen. * steht für beliebige Zeichen, ? für eines.</translation>
    </message>
    <message>
        <source>Search/Lists the layers whose names match the text.</source>
        <translation>Suchen/Führt Layer auf, deren Namen zum Text passen.</translation>
    </message>
    <message>
        <source>Invert filter/Lists the layers that the selected filter does not show.</source>
        <translation>Filter umkehren/Führt die Layer auf, die der gewählte Filter nicht zeigt.</translation>
    </message>
</context>
<context>
    <name>CLayerSearchBox</name>
    <message>
        <source>Search for layers</source>
        <translation>Nach Layern suchen</translation>
    </message>
</context>
<context>
    <name>CLayerSettingsDlg</name>
    <message>
        <source>&amp;Watch for new layers in drawings</source>
        <translation>In Zeichnungen auf neue Layer &amp;achten</translation>
    </message>
    <message>
        <source>&amp;Evaluate new layers of this drawing</source>
        <translation>Neue Layer dieser Zeichnung aus&amp;werten</translation>
    </message>
    <message>
        <source>In this &amp;drawing only</source>
        <translation>Nur in dieser &amp;Zeichnung</translation>
    </message>
    <message>
        <source>In this drawing and its external &amp;references</source>
        <translation>In dieser Zeichnung und ihren externen &amp;Referenzen</translation>
    </message>
    <message>
        <source>&amp;Notify about new layers when</source>
        <translation>Über &amp;neue Layer benachrichtigen, wenn</translation>
    </message>
    <message>
        <source>the drawing is &amp;opened</source>
        <translation>die Zeichnung ge&amp;öffnet wird</translation>
    </message>
    <message>
        <source>references are &amp;attached or reloaded</source>
        <translation>Referenzen zugeordnet oder neu ge&amp;laden werden</translation>
    </message>
    <message>
        <source>a layer s&amp;tate is restored</source>
        <translation>ein Layers&amp;tatus wiederhergestellt wird</translation>
    </message>
    <message>
        <source>the drawing is &amp;saved</source>
        <translation>die Zeichnung &amp;gespeichert wird</translation>
    </message>
    <message>
        <source>something is &amp;inserted</source>
        <translation>etwas &amp;eingefügt wird</translation>
    </message>
    <message>
        <source>the drawing is &amp;plotted</source>
        <translation>die Zeichnung ge&amp;plottet wird</translation>
    </message>
    <message>
        <source>Apply the &amp;filter to the layer toolbar</source>
        <translation>&amp;Filter auf die Layer-Werkzeugleiste anwenden</translation>
    </message>
    <message>
        <source>Show whether layers are in &amp;use</source>
        <translation>Anzeigen, ob Layer &amp;verwendet werden</translation>
    </message>
    <message>
        <source>Layer Settings</source>
        <translation>Layereinstellungen</translation>
    </message>
    <message>
        <source>New layers</source>
        <translation>Neue Layer</translation>
    </message>
    <message>
        <source>List of layers</source>
        <translation>Liste der Layer</translation>
    </message>
</context>
<context>
    <name>CLayerStateManDlg</name>
    <message>
        <source>&amp;New...</source>
        <translation>&amp;Neu...</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>&amp;Edit...</source>
        <translation>&amp;Bearbeiten...</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>I&amp;mport...</source>
        <translation>I&amp;mportieren...</translation>
    </message>
    <message>
        <source>E&amp;xport...</source>
        <translation>E&amp;xportieren...</translation>
    </message>
    <message>
        <source>Layer States Manager</source>
        <translation>Layerstatus-Manager</translation>
    </message>
    <message>
        <source>Layer states</source>
        <translation>Layerstatus</translation>
    </message>
    <message>
        <source>La&amp;yer states:</source>
        <translation>La&amp;yerstatus:</translation>
    </message>
    <message>
        <source>D&amp;on&apos;t list layer states of external references</source>
        <translation>Layers&amp;tatus externer Referenzen nicht aufführen</translation>
    </message>
    <message>
        <source>Res&amp;tore</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Layer properties to restore</source>
        <translation>Wiederherzustellende Eigenschaften</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alle auswählen</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>Alle abwählen</translation>
    </message>
    <message>
        <source>Restore options</source>
        <translation>Optionen beim Wiederherstellen</translation>
    </message>
    <message>
        <source>T&amp;urn off layers not found in the state</source>
        <translation>Nicht im Status enthaltene Layer &amp;ausschalten</translation>
    </message>
    <message>
        <source>&amp;Apply as viewport overrides</source>
        <translation>Als &amp;Überschreibungen im Ansichtsfenster anwenden</translation>
    </message>
    <message>
        <source>On or o&amp;ff</source>
        <translation>Ein &amp;oder aus</translation>
    </message>
    <message>
        <source>Frozen or tha&amp;wed</source>
        <translation>&amp;Gefroren oder getaut</translation>
    </message>
    <message>
        <source>Frozen or thawed in current &amp;viewport</source>
        <translation>Im aktuellen Ansichts&amp;fenster gefroren oder getaut</translation>
    </message>
    <message>
        <source>Loc&amp;ked or unlocked</source>
        <translation>Gespe&amp;rrt oder nicht</translation>
    </message>
    <message>
        <source>&amp;Plot or no plot</source>
        <translation>&amp;Plotten oder nicht</translation>
    </message>
    <message>
        <source>Co&amp;lor</source>
        <translation>Farb&amp;e</translation>
    </message>
    <message>
        <source>L&amp;inetype</source>
        <translation>L&amp;inientyp</translation>
    </message>
    <message>
        <source>Linewei&amp;ght</source>
        <translation>Linienstär&amp;ke</translation>
    </message>
    <message>
        <source>Plot style</source>
        <translation>Plotstil</translation>
    </message>
    <message>
        <source>Fro&amp;zen in new viewports</source>
        <translation>In &amp;jedem neuen Ansichtsfenster gefroren</translation>
    </message>
    <message>
        <source>DXF Drawing</source>
        <translation>DXF-Zeichnung</translation>
    </message>
</context>
<context>
    <name>CLayerTreeVw</name>
    <message>
        <source>Layer filters</source>
        <translation>Layerfilter</translation>
    </message>
    <message>
        <source>Invalid Filter</source>
        <translation>Ungültiger Filter</translation>
    </message>
    <message>
        <source>The filter &quot;%1&quot; was not made: &quot;%2&quot;, which it was to stand below, is no longer in the drawing.</source>
        <translation>Der Filter „%1“ wurde nicht angelegt: „%2“, unter dem er stehen sollte, ist nicht mehr in der Zeichnung.</translation>
    </message>
    <message>
        <source>The filter &quot;%1&quot; was not changed: it is no longer in the drawing.</source>
        <translation>Der Filter „%1“ wurde nicht geändert: Er ist nicht mehr in der Zeichnung.</translation>
    </message>
</context>
<context>
    <name>CLayer_Filter_ViolationPromptDlg</name>
    <message>
        <source>&amp;Tell me when layers no longer agree with the filter</source>
        <translation>&amp;Melden, wenn Layer nicht mehr zum Filter passen</translation>
    </message>
    <message>
        <source>Layer Filter</source>
        <translation>Layerfilter</translation>
    </message>
    <message>
        <source>A layer was changed and no longer agrees with the filter that is selected in the palette. It is listed, or left out, accordingly.</source>
        <translation>Ein Layer wurde geändert und passt nicht mehr zu dem Filter, der in der Palette gewählt ist. Er wird entsprechend aufgeführt oder weggelassen.</translation>
    </message>
</context>
<context>
    <name>CNewLayStateDlg</name>
    <message>
        <source>New Layer State to Save</source>
        <translation>Neuer zu speichernder Layerstatus</translation>
    </message>
    <message>
        <source>New layer state name</source>
        <translation>Name des neuen Layerstatus</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>&amp;New layer state name:</source>
        <translation>&amp;Name des neuen Layerstatus:</translation>
    </message>
    <message>
        <source>&amp;Description:</source>
        <translation>&amp;Beschreibung:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>CPaneTitleBar</name>
    <message>
        <source>&amp;Dock</source>
        <translation>An&amp;docken</translation>
    </message>
    <message>
        <source>&amp;Float</source>
        <translation>&amp;Schweben</translation>
    </message>
    <message>
        <source>&amp;Hide to Side</source>
        <translation>Am Rand &amp;ausblenden</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
</context>
<context>
    <name>CPaneTitleButton</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>Schweben</translation>
    </message>
    <message>
        <source>Dock</source>
        <translation>Andocken</translation>
    </message>
    <message>
        <source>Auto Hide</source>
        <translation>Automatisch ausblenden</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Anheften</translation>
    </message>
</context>
<context>
    <name>CSideBar</name>
    <message>
        <source>Hidden panes</source>
        <translation>Ausgeblendete Bereiche</translation>
    </message>
</context>
<context>
    <name>FilterColumn</name>
    <message>
        <source>in use</source>
        <translation>verwendet</translation>
    </message>
    <message>
        <source>not in use</source>
        <translation>nicht verwendet</translation>
    </message>
    <message>
        <source>in use, with viewport overrides</source>
        <translation>verwendet, mit Überschreibungen im Ansichtsfenster</translation>
    </message>
    <message>
        <source>not in use, with viewport overrides</source>
        <translation>nicht verwendet, mit Überschreibungen im Ansichtsfenster</translation>
    </message>
    <message>
        <source>on</source>
        <translation>ein</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>frozen</source>
        <translation>gefroren</translation>
    </message>
    <message>
        <source>thawed</source>
        <translation>getaut</translation>
    </message>
    <message>
        <source>locked</source>
        <translation>gesperrt</translation>
    </message>
    <message>
        <source>unlocked</source>
        <translation>nicht gesperrt</translation>
    </message>
    <message>
        <source>plotted</source>
        <translation>wird geplottet</translation>
    </message>
    <message>
        <source>not plotted</source>
        <translation>wird nicht geplottet</translation>
    </message>
    <message>
        <source>frozen in new viewports</source>
        <translation>in neuen Ansichtsfenstern gefroren</translation>
    </message>
    <message>
        <source>thawed in new viewports</source>
        <translation>in neuen Ansichtsfenstern getaut</translation>
    </message>
    <message>
        <source>frozen in the active viewport</source>
        <translation>im aktiven Ansichtsfenster gefroren</translation>
    </message>
    <message>
        <source>thawed in the active viewport</source>
        <translation>im aktiven Ansichtsfenster getaut</translation>
    </message>
</context>
<context>
    <name>FilterRowsModel</name>
    <message>
        <source>Line %1</source>
        <translation>Zeile %1</translation>
    </message>
    <message>
        <source>%1, line %2</source>
        <translation>%1, Zeile %2</translation>
    </message>
    <message>
        <source>%1, line %2: %3</source>
        <translation>%1, Zeile %2: %3</translation>
    </message>
    <message>
        <source>not set</source>
        <translation>nicht gesetzt</translation>
    </message>
</context>
<context>
    <name>FilterTree</name>
    <message>
        <source>&amp;On</source>
        <translation>E&amp;in</translation>
    </message>
    <message>
        <source>O&amp;ff</source>
        <translation>A&amp;us</translation>
    </message>
    <message>
        <source>&amp;Thawed</source>
        <translation>&amp;Getaut</translation>
    </message>
    <message>
        <source>F&amp;rozen</source>
        <translation>Ge&amp;froren</translation>
    </message>
    <message>
        <source>&amp;Lock</source>
        <translation>S&amp;perren</translation>
    </message>
    <message>
        <source>&amp;Unlock</source>
        <translation>&amp;Entsperren</translation>
    </message>
    <message>
        <source>&amp;Freeze</source>
        <translation>&amp;Frieren</translation>
    </message>
    <message>
        <source>&amp;Thaw</source>
        <translation>&amp;Tauen</translation>
    </message>
    <message>
        <source>&amp;Isolate (Freeze Others)</source>
        <translation>&amp;Isolieren (andere frieren)</translation>
    </message>
    <message>
        <source>Thaw Ot&amp;hers in Viewport</source>
        <translation>&amp;Andere im Ansichtsfenster tauen</translation>
    </message>
    <message>
        <source>New &amp;Properties Filter...</source>
        <translation>Neuer &amp;Eigenschaftenfilter...</translation>
    </message>
    <message>
        <source>New &amp;Group Filter</source>
        <translation>Neuer &amp;Gruppenfilter</translation>
    </message>
    <message>
        <source>&amp;Convert to Group Filter</source>
        <translation>In Gruppenfilter &amp;umwandeln</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>Um&amp;benennen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Edit...</source>
        <translation>Bea&amp;rbeiten...</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>&amp;Ersetzen</translation>
    </message>
    <message>
        <source>&amp;Visibility</source>
        <translation>&amp;Sichtbarkeit</translation>
    </message>
    <message>
        <source>Filter commands</source>
        <translation>Filterbefehle</translation>
    </message>
</context>
<context>
    <name>FilterTreeDelegate</name>
    <message>
        <source>Name of the filter</source>
        <translation>Name des Filters</translation>
    </message>
</context>
<context>
    <name>FilterTreeModel</name>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>All used layers</source>
        <translation>Alle verwendeten Layer</translation>
    </message>
    <message>
        <source>External References</source>
        <translation>Externe Referenzen</translation>
    </message>
    <message>
        <source>All layers</source>
        <translation>Alle Layer</translation>
    </message>
    <message>
        <source>Layers in use</source>
        <translation>Verwendete Layer</translation>
    </message>
    <message>
        <source>Property filter</source>
        <translation>Eigenschaftenfilter</translation>
    </message>
    <message>
        <source>Property filter of another program</source>
        <translation>Eigenschaftenfilter eines anderen Programms</translation>
    </message>
    <message>
        <source>Group filter</source>
        <translation>Gruppenfilter</translation>
    </message>
    <message>
        <source>Layers of external references</source>
        <translation>Layer externer Referenzen</translation>
    </message>
    <message>
        <source>External reference</source>
        <translation>Externe Referenz</translation>
    </message>
    <message>
        <source>New layers that were not reviewed</source>
        <translation>Neue, noch nicht geprüfte Layer</translation>
    </message>
</context>
<context>
    <name>KsResString</name>
    <message>
        <source>Vie&amp;wport</source>
        <comment>40116</comment>
        <translation>Ansichts&amp;fenster</translation>
    </message>
    <message>
        <source>&amp;Select Layers</source>
        <comment>40117</comment>
        <translation>Layer aus&amp;wählen</translation>
    </message>
    <message>
        <source>Layer - Excess Layer Filters</source>
        <comment>40272</comment>
        <translation>Layer - Zu viele Layerfilter</translation>
    </message>
    <message>
        <source>There are more layer filters in this drawing than layers. What do you want to do?</source>
        <comment>40273</comment>
        <translation>Diese Zeichnung enthält mehr Layerfilter als Layer. Was möchten Sie tun?</translation>
    </message>
    <message>
        <source>Extra layer filters might have been created in error. Too many layer filters can result in slower performance.</source>
        <comment>40274</comment>
        <translation>Überzählige Layerfilter sind vielleicht versehentlich entstanden. Zu viele Layerfilter können das Programm verlangsamen.</translation>
    </message>
    <message>
        <source>Delete all layer filters (recommended)</source>
        <comment>40275</comment>
        <translation>Alle Layerfilter löschen (empfohlen)</translation>
    </message>
    <message>
        <source>Retain all layer filters</source>
        <comment>40276</comment>
        <translation>Alle Layerfilter behalten</translation>
    </message>
    <message>
        <source>UnReconciled New Layers</source>
        <comment>84538</comment>
        <translation>Nicht abgeglichene neue Layer</translation>
    </message>
    <message>
        <source>Invalid Characters in filter name.

Followinf characters are not valid in Filter names:
    %1</source>
        <comment>84539</comment>
        <translation>Ungültige Zeichen im Filternamen.

Folgende Zeichen sind in Filternamen nicht erlaubt:
    %1</translation>
    </message>
    <message>
        <source>Invalid Filter name.

 Filter name must be unique.</source>
        <comment>84540</comment>
        <translation>Ungültiger Filtername.

 Der Filtername muss eindeutig sein.</translation>
    </message>
    <message>
        <source>Status</source>
        <comment>84783</comment>
        <translation>Status</translation>
    </message>
    <message>
        <source>Layer Name</source>
        <comment>84772</comment>
        <translation>Layername</translation>
    </message>
    <message>
        <source>On</source>
        <comment>84773</comment>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Freeze</source>
        <comment>84774</comment>
        <translation>Frieren</translation>
    </message>
    <message>
        <source>Locked</source>
        <comment>84775</comment>
        <translation>Gesperrt</translation>
    </message>
    <message>
        <source>Color</source>
        <comment>84776</comment>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Linetype</source>
        <comment>84777</comment>
        <translation>Linientyp</translation>
    </message>
    <message>
        <source>Lineweight</source>
        <comment>84778</comment>
        <translation>Linienstärke</translation>
    </message>
    <message>
        <source>Plot Style</source>
        <comment>84779</comment>
        <translation>Plotstil</translation>
    </message>
    <message>
        <source>Plot</source>
        <comment>84780</comment>
        <translation>Plotten</translation>
    </message>
    <message>
        <source>New VPFreeze</source>
        <comment>84781</comment>
        <translation>In neuen AF frieren</translation>
    </message>
    <message>
        <source>Description</source>
        <comment>84784</comment>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>VP Freeze</source>
        <comment>84785</comment>
        <translation>AF frieren</translation>
    </message>
    <message>
        <source>VP Color</source>
        <comment>84786</comment>
        <translation>AF Farbe</translation>
    </message>
    <message>
        <source>VP LineType</source>
        <comment>84787</comment>
        <translation>AF Linientyp</translation>
    </message>
    <message>
        <source>VP LineWeight</source>
        <comment>84788</comment>
        <translation>AF Linienstärke</translation>
    </message>
    <message>
        <source>VP PlotStyle</source>
        <comment>84789</comment>
        <translation>AF Plotstil</translation>
    </message>
    <message>
        <source>Unable to modify layers while another command is active.</source>
        <comment>40182</comment>
        <translation>Layer können nicht geändert werden, solange ein anderer Befehl läuft.</translation>
    </message>
    <message>
        <source>Multiple layers cannot be made current. please select a single layer.</source>
        <comment>40433</comment>
        <translation>Mehrere Layer können nicht zugleich aktuell sein. Bitte wählen Sie einen einzigen Layer.</translation>
    </message>
    <message>
        <source>The following characters are not valid in Layer Names:
</source>
        <comment>84506</comment>
        <translation>Folgende Zeichen sind in Layernamen nicht erlaubt:
</translation>
    </message>
    <message>
        <source>Not yet supported</source>
        <comment>84508</comment>
        <translation>Noch nicht unterstützt</translation>
    </message>
    <message>
        <source>The Following Layers Cannot be deleted.
 .Layer 0 and Defpoints
 .current layer 
 .Layers containing objects 
 .xref-dependent layers</source>
        <comment>84515</comment>
        <translation>Folgende Layer können nicht gelöscht werden.
 .Layer 0 und Defpoints
 .Aktueller Layer
 .Layer mit Objekten
 .XRef-abhängige Layer</translation>
    </message>
    <message>
        <source>The following Layers Cannot be made current.
 .Xref dependent layers
 .Frozen layers</source>
        <comment>84516</comment>
        <translation>Folgende Layer können nicht aktuell gesetzt werden.
 .XRef-abhängige Layer
 .Gefrorene Layer</translation>
    </message>
    <message>
        <source>Cannot freeze current layer. Specify a different layer</source>
        <comment>84782</comment>
        <translation>Der aktuelle Layer kann nicht gefroren werden. Geben Sie einen anderen Layer an.</translation>
    </message>
    <message>
        <source>Layer%d</source>
        <comment>84791</comment>
        <translation>Layer%d</translation>
    </message>
    <message>
        <source>The name cannot be longer than 255 characters</source>
        <comment>84919</comment>
        <translation>Der Name darf nicht länger als 255 Zeichen sein</translation>
    </message>
    <message>
        <source>Layer - Current Layer off</source>
        <comment>85403</comment>
        <translation>Layer - Aktueller Layer aus</translation>
    </message>
    <message>
        <source>The current Layer will be turned off.What do you want to do?</source>
        <comment>85404</comment>
        <translation>Der aktuelle Layer wird ausgeschaltet. Was möchten Sie tun?</translation>
    </message>
    <message>
        <source>Turn the current layer off 
 Objects that you create on will not be displayed in the drawing until you turn the layer back on</source>
        <comment>85405</comment>
        <translation>Den aktuellen Layer ausschalten 
 Objekte, die Sie darauf zeichnen, sind erst zu sehen, wenn Sie den Layer wieder einschalten</translation>
    </message>
    <message>
        <source>Keep the current layer on</source>
        <comment>85406</comment>
        <translation>Den aktuellen Layer eingeschaltet lassen</translation>
    </message>
    <message>
        <source>The selected layer cannot be renamed.

 The following layers cannot be renamed: 
 1. Layer 0 
 2. Xref-dependent Layers</source>
        <comment>85989</comment>
        <translation>Der gewählte Layer kann nicht umbenannt werden.

 Folgende Layer können nicht umbenannt werden: 
 1. Layer 0 
 2. XRef-abhängige Layer</translation>
    </message>
    <message>
        <source>Layer Properties Manager</source>
        <comment>84536</comment>
        <translation>Layereigenschaften-Manager</translation>
    </message>
    <message>
        <source>Press F1 for more help.</source>
        <comment>51575</comment>
        <translation>Drücken Sie F1, um mehr zu erfahren.</translation>
    </message>
    <message>
        <source>Watch for new layers/Tells new layers from those that were reviewed. This is your own setting for all drawings: without it no drawing is looked at./System variable LAYEREVALCTL</source>
        <comment>40102</comment>
        <translation>Auf neue Layer achten/Unterscheidet neue Layer von geprüften. Das ist Ihre eigene Einstellung für alle Zeichnungen: Ohne sie wird keine Zeichnung untersucht./Systemvariable LAYEREVALCTL</translation>
    </message>
    <message>
        <source>Evaluate new layers of this drawing/Lists layers that were added and not reviewed yet under &quot;UnReconciled New Layers&quot;. The drawing keeps this setting./System variable LAYEREVAL</source>
        <comment>40103</comment>
        <translation>Neue Layer dieser Zeichnung auswerten/Führt hinzugekommene, noch nicht geprüfte Layer unter &quot;Nicht abgeglichene neue Layer&quot; auf. Die Zeichnung merkt sich diese Einstellung./Systemvariable LAYEREVAL</translation>
    </message>
    <message>
        <source>This drawing only/Looks for new layers in this drawing. Layers of attached external references are not listed.</source>
        <comment>40104</comment>
        <translation>Nur diese Zeichnung/Sucht neue Layer in dieser Zeichnung. Layer zugeordneter externer Referenzen werden nicht aufgeführt.</translation>
    </message>
    <message>
        <source>This drawing and its external references/Looks for new layers everywhere: in this drawing and in what is attached to it.</source>
        <comment>40105</comment>
        <translation>Diese Zeichnung und ihre externen Referenzen/Sucht überall nach neuen Layern: in dieser Zeichnung und in allem, was ihr zugeordnet ist.</translation>
    </message>
    <message>
        <source>Notify about new layers/Tells you when there are layers that nobody has reviewed yet. Choose below at which moments. Switched off, the choice is kept for later./System variable LAYERNOTIFY</source>
        <comment>40106</comment>
        <translation>Über neue Layer benachrichtigen/Meldet Layer, die noch niemand geprüft hat. Wählen Sie darunter, zu welchen Zeitpunkten. Ausgeschaltet bleibt die Auswahl für später erhalten./Systemvariable LAYERNOTIFY</translation>
    </message>
    <message>
        <source>When the drawing is opened/Tells about new layers right after the drawing was opened.</source>
        <comment>40107</comment>
        <translation>Beim Öffnen der Zeichnung/Meldet neue Layer gleich nach dem Öffnen der Zeichnung.</translation>
    </message>
    <message>
        <source>When references change/Tells about new layers when an external reference is attached, loaded or reloaded.</source>
        <comment>40108</comment>
        <translation>Bei geänderten Referenzen/Meldet neue Layer, wenn eine externe Referenz zugeordnet, geladen oder neu geladen wird.</translation>
    </message>
    <message>
        <source>When a layer state is restored/Tells about layers that the state does not know, because they came later.</source>
        <comment>40109</comment>
        <translation>Beim Wiederherstellen eines Layerstatus/Meldet Layer, die der Status nicht kennt, weil sie später hinzukamen.</translation>
    </message>
    <message>
        <source>When the drawing is saved/Tells about new layers before they are handed on with the file.</source>
        <comment>40110</comment>
        <translation>Beim Speichern der Zeichnung/Meldet neue Layer, bevor sie mit der Datei weitergegeben werden.</translation>
    </message>
    <message>
        <source>When something is inserted/Tells about layers that a block or another drawing brought along.</source>
        <comment>40111</comment>
        <translation>Beim Einfügen/Meldet Layer, die ein Block oder eine andere Zeichnung mitgebracht hat.</translation>
    </message>
    <message>
        <source>When the drawing is plotted/Tells about new layers before they come on paper.</source>
        <comment>40112</comment>
        <translation>Beim Plotten der Zeichnung/Meldet neue Layer, bevor sie auf Papier kommen.</translation>
    </message>
    <message>
        <source>Filter the layer toolbar/The list of layers in the toolbar shows only those that pass the filter selected in the palette.</source>
        <comment>40113</comment>
        <translation>Layer-Werkzeugleiste filtern/Die Layerliste in der Werkzeugleiste zeigt nur Layer, die den in der Palette gewählten Filter passieren.</translation>
    </message>
    <message>
        <source>Show layer usage/Marks layers without objects in the Status column. In very large drawings the list is quicker without it./System variable SHOWLAYERUSAGE</source>
        <comment>40114</comment>
        <translation>Verwendung der Layer anzeigen/Kennzeichnet Layer ohne Objekte in der Spalte Status. In sehr großen Zeichnungen ist die Liste ohne dies schneller./Systemvariable SHOWLAYERUSAGE</translation>
    </message>
    <message>
        <source>Current Layer: </source>
        <comment>84537</comment>
        <translation>Aktueller Layer: </translation>
    </message>
    <message>
        <source> %s : %d layers displayed of %d total layers</source>
        <comment>85988</comment>
        <translation> %s : %d von insgesamt %d Layern angezeigt</translation>
    </message>
    <message>
        <source>List the named layer states that have been saved in the drawing,the space in which they are saved(model space,layout,or xref),whether the layer list is the same as in the drawing, and an optional description.</source>
        <comment>60071</comment>
        <translation>Führt die benannten Layerstatus auf, die in der Zeichnung gespeichert sind, dazu den Bereich, in dem sie gespeichert wurden (Modell, Layout oder XRef), ob die Layerliste der Zeichnung entspricht, und eine Beschreibung.</translation>
    </message>
    <message>
        <source>Display the New Layer State to save dialog box, where you can provide a name and a description for the new named layer state</source>
        <comment>60072</comment>
        <translation>Öffnet das Dialogfeld für einen neuen Layerstatus, in dem Sie Namen und Beschreibung angeben.</translation>
    </message>
    <message>
        <source>Saves the selected named layer state.</source>
        <comment>60073</comment>
        <translation>Speichert den gewählten Layerstatus.</translation>
    </message>
    <message>
        <source>Display the Edit Layer State dialog box,where you can modify a selected named layer state.</source>
        <comment>60074</comment>
        <translation>Öffnet das Dialogfeld, in dem Sie den gewählten Layerstatus bearbeiten.</translation>
    </message>
    <message>
        <source>Allows in-place editing of the layer state name.</source>
        <comment>60075</comment>
        <translation>Bearbeitet den Namen des Layerstatus in der Liste.</translation>
    </message>
    <message>
        <source>Removes the selected named layer state.</source>
        <comment>60076</comment>
        <translation>Entfernt den gewählten Layerstatus.</translation>
    </message>
    <message>
        <source>Display a standard file selection dialog box, where you can load a previously exported layer state (LAS) file into the current drawing.Layer state in files (DWG,DWS,or DWT) can be imported.Additional layers may be created as a result of importing a layer state file.When a DWG, DWS or DWT file is selected, the select Layer States dialog box is displayed where you can select layer states to import.</source>
        <comment>60077</comment>
        <translation>Öffnet ein Dialogfeld zur Dateiauswahl, mit dem Sie eine zuvor exportierte Layerstatusdatei (LAS) in die aktuelle Zeichnung laden. Auch Layerstatus in Dateien der Typen DWG, DWS und DWT lassen sich importieren. Dabei können weitere Layer entstehen. Bei einer Datei des Typs DWG, DWS oder DWT wählen Sie anschließend aus, welche Layerstatus importiert werden.</translation>
    </message>
    <message>
        <source>Displays a standard file selection dialog box, where you can save the selected named layer state to a layer state (LAS) file.</source>
        <comment>60078</comment>
        <translation>Öffnet ein Dialogfeld zur Dateiauswahl, mit dem Sie den gewählten Layerstatus in einer Layerstatusdatei (LAS) speichern.</translation>
    </message>
    <message>
        <source>Controls whether layer states in xrefs are displayed.</source>
        <comment>60079</comment>
        <translation>Bestimmt, ob Layerstatus aus XRefs aufgeführt werden.</translation>
    </message>
    <message>
        <source>When a layer state is restored, turns off new layers for which settings were not saved so that the drawing looks the same way it did when the named layer state was saved.</source>
        <comment>60080</comment>
        <translation>Schaltet beim Wiederherstellen neue Layer aus, für die nichts gespeichert wurde. So sieht die Zeichnung aus wie beim Speichern des Layerstatus.</translation>
    </message>
    <message>
        <source>Applies layer property overrides to the current viewport.This option is available when the Layer states Manager is accessed when a layout viewport is active.</source>
        <comment>60081</comment>
        <translation>Wendet die Eigenschaften als Überschreibungen auf das aktuelle Ansichtsfenster an. Verfügbar, wenn beim Öffnen des Layerstatus-Managers ein Ansichtsfenster eines Layouts aktiv ist.</translation>
    </message>
    <message>
        <source>Restores state and property settings of all layers in a drawing to their previously saved settings.Restores only those layer state and property settings that you specify with the check boxes. </source>
        <comment>60082</comment>
        <translation>Stellt Zustand und Eigenschaften aller Layer einer Zeichnung so wieder her, wie sie gespeichert wurden. Wiederhergestellt wird nur, was mit den Kontrollkästchen gewählt ist. </translation>
    </message>
    <message>
        <source>More Restore Options</source>
        <comment>60083</comment>
        <translation>Mehr Optionen beim Wiederherstellen</translation>
    </message>
    <message>
        <source>Selects all the settings</source>
        <comment>60084</comment>
        <translation>Wählt alle Einstellungen aus</translation>
    </message>
    <message>
        <source>Removes selection from all the settings.</source>
        <comment>60085</comment>
        <translation>Wählt alle Einstellungen ab.</translation>
    </message>
    <message>
        <source>Less Restore Options</source>
        <comment>60086</comment>
        <translation>Weniger Optionen beim Wiederherstellen</translation>
    </message>
    <message>
        <source>Add layer to layer state</source>
        <comment>60087</comment>
        <translation>Layer zum Layerstatus hinzufügen</translation>
    </message>
    <message>
        <source>Remove layer from layer state</source>
        <comment>60088</comment>
        <translation>Layer aus dem Layerstatus entfernen</translation>
    </message>
    <message>
        <source>Specifies a name for the new layer state to be saved.</source>
        <comment>60092</comment>
        <translation>Gibt dem neuen, zu speichernden Layerstatus einen Namen.</translation>
    </message>
    <message>
        <source>Cannot freeze the current layer</source>
        <comment>84504</comment>
        <translation>Der aktuelle Layer kann nicht gefroren werden</translation>
    </message>
    <message>
        <source>layer State Manager</source>
        <comment>84505</comment>
        <translation>Layerstatus-Manager</translation>
    </message>
    <message>
        <source>Export Layer State</source>
        <comment>84517</comment>
        <translation>Layerstatus exportieren</translation>
    </message>
    <message>
        <source>Layer State file(*.las)|las</source>
        <comment>84518</comment>
        <translation>Layerstatusdatei (*.las)|las</translation>
    </message>
    <message>
        <source>Import Layer State</source>
        <comment>84519</comment>
        <translation>Layerstatus importieren</translation>
    </message>
    <message>
        <source>Drawing|dwg,Standards|dws,Drawing Template|dwt,Layer state files|las</source>
        <comment>84520</comment>
        <translation>Zeichnung|dwg,Standards|dws,Zeichnungsvorlage|dwt,Layerstatusdateien|las</translation>
    </message>
    <message>
        <source>Replace Existing Layer State </source>
        <comment>84521</comment>
        <translation>Vorhandenen Layerstatus ersetzen </translation>
    </message>
    <message>
        <source>OverWrite Selected Layer State?</source>
        <comment>84522</comment>
        <translation>Gewählten Layerstatus überschreiben?</translation>
    </message>
    <message>
        <source>Name</source>
        <comment>84523</comment>
        <translation>Name</translation>
    </message>
    <message>
        <source>Space</source>
        <comment>84524</comment>
        <translation>Bereich</translation>
    </message>
    <message>
        <source>Same As Dwg</source>
        <comment>84525</comment>
        <translation>Wie in Zchng.</translation>
    </message>
    <message>
        <source>Description</source>
        <comment>84526</comment>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Model</source>
        <comment>84527</comment>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Layout</source>
        <comment>84528</comment>
        <translation>Layout</translation>
    </message>
    <message>
        <source>Yes</source>
        <comment>84529</comment>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <comment>84530</comment>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Layer State &apos;%s&apos; already exists. Do you want to replace it?</source>
        <comment>84533</comment>
        <translation>Der Layerstatus &apos;%s&apos; ist schon vorhanden. Möchten Sie ihn ersetzen?</translation>
    </message>
    <message>
        <source>Do you want to replace the state?</source>
        <comment>84534</comment>
        <translation>Möchten Sie den Status ersetzen?</translation>
    </message>
    <message>
        <source>Check LayState</source>
        <comment>84535</comment>
        <translation>Layerstatus prüfen</translation>
    </message>
    <message>
        <source>Are you sure you want to  permanently delete the LS %s ?</source>
        <comment>84790</comment>
        <translation>Möchten Sie den Layerstatus %s wirklich endgültig löschen?</translation>
    </message>
    <message>
        <source>Provides a space to enter a name for the layer properties filter </source>
        <comment>60089</comment>
        <translation>Nimmt den Namen des Eigenschaftenfilters für Layer auf </translation>
    </message>
    <message>
        <source>Displays the properties of layers. You can use one or more properties to define the filter.For example, you can define a filter that displays all layers that are either red or blue and in use.To include more than one color, linetype, or lineweight, duplicate the filter on the next line and select a different setting.</source>
        <comment>60090</comment>
        <translation>Zeigt die Eigenschaften von Layern. Eine oder mehrere davon bestimmen den Filter, zum Beispiel einen Filter für alle Layer, die rot oder blau sind und verwendet werden. Für mehr als eine Farbe, einen Linientyp oder eine Linienstärke duplizieren Sie die Zeile und wählen in der nächsten eine andere Einstellung.</translation>
    </message>
    <message>
        <source>Displays the examples of layer property filter definition in Layer Filter Examples.</source>
        <comment>60091</comment>
        <translation>Zeigt Beispiele für Definitionen von Eigenschaftenfiltern.</translation>
    </message>
    <message>
        <source>Invalid Filter Name</source>
        <comment>84503</comment>
        <translation>Ungültiger Filtername</translation>
    </message>
    <message>
        <source>Duplicate Row</source>
        <comment>84531</comment>
        <translation>Zeile duplizieren</translation>
    </message>
    <message>
        <source>Delete Row</source>
        <comment>84532</comment>
        <translation>Zeile löschen</translation>
    </message>
</context>
<context>
    <name>LayerCells</name>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation>Gefroren</translation>
    </message>
    <message>
        <source>Thawed</source>
        <translation>Getaut</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Gesperrt</translation>
    </message>
    <message>
        <source>Unlocked</source>
        <translation>Nicht gesperrt</translation>
    </message>
    <message>
        <source>Plotted</source>
        <translation>Wird geplottet</translation>
    </message>
    <message>
        <source>Not plotted</source>
        <translation>Wird nicht geplottet</translation>
    </message>
    <message>
        <source>Frozen in new viewports</source>
        <translation>In neuen Ansichtsfenstern gefroren</translation>
    </message>
    <message>
        <source>Thawed in new viewports</source>
        <translation>In neuen Ansichtsfenstern getaut</translation>
    </message>
    <message>
        <source>Frozen in the active viewport</source>
        <translation>Im aktiven Ansichtsfenster gefroren</translation>
    </message>
    <message>
        <source>Thawed in the active viewport</source>
        <translation>Im aktiven Ansichtsfenster getaut</translation>
    </message>
    <message>
        <source>Current layer</source>
        <translation>Aktueller Layer</translation>
    </message>
    <message>
        <source>Not in use</source>
        <translation>Nicht verwendet</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>Verwendet</translation>
    </message>
    <message>
        <source>On: %1</source>
        <translation>Ein: %1</translation>
    </message>
    <message>
        <source>Frozen: %1</source>
        <translation>Gefroren: %1</translation>
    </message>
    <message>
        <source>Locked: %1</source>
        <translation>Gesperrt: %1</translation>
    </message>
    <message>
        <source>Plotted: %1</source>
        <translation>Wird geplottet: %1</translation>
    </message>
    <message>
        <source>Frozen in new viewports: %1</source>
        <translation>In neuen Ansichtsfenstern gefroren: %1</translation>
    </message>
    <message>
        <source>Frozen in the active viewport: %1</source>
        <translation>Im aktiven Ansichtsfenster gefroren: %1</translation>
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
        <source>red</source>
        <translation>rot</translation>
    </message>
    <message>
        <source>yellow</source>
        <translation>gelb</translation>
    </message>
    <message>
        <source>green</source>
        <translation>grün</translation>
    </message>
    <message>
        <source>cyan</source>
        <translation>cyan</translation>
    </message>
    <message>
        <source>blue</source>
        <translation>blau</translation>
    </message>
    <message>
        <source>magenta</source>
        <translation>magenta</translation>
    </message>
    <message>
        <source>white</source>
        <translation>weiß</translation>
    </message>
</context>
<context>
    <name>LayerCommands</name>
    <message>
        <source>Layer commands</source>
        <translation>Layerbefehle</translation>
    </message>
    <message>
        <source>Set &amp;Current</source>
        <translation>A&amp;ktuell setzen</translation>
    </message>
    <message>
        <source>&amp;New Layer</source>
        <translation>&amp;Neuer Layer</translation>
    </message>
    <message>
        <source>New Layer Frozen in All &amp;Viewports</source>
        <translation>Neuer, in allen &amp;Ansichtsfenstern gefrorener Layer</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>Change D&amp;escription</source>
        <translation>&amp;Beschreibung ändern</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Rec&amp;oncile</source>
        <translation>Ab&amp;gleichen</translation>
    </message>
    <message>
        <source>&amp;Isolate (Turn Others Off)</source>
        <translation>&amp;Isolieren (andere ausschalten)</translation>
    </message>
    <message>
        <source>&amp;Freeze</source>
        <translation>&amp;Frieren</translation>
    </message>
    <message>
        <source>&amp;Thaw</source>
        <translation>&amp;Tauen</translation>
    </message>
    <message>
        <source>In the &amp;Active Viewport</source>
        <translation>Im &amp;aktiven Ansichtsfenster</translation>
    </message>
    <message>
        <source>In A&amp;ll Viewports</source>
        <translation>In a&amp;llen Ansichtsfenstern</translation>
    </message>
    <message>
        <source>&amp;Properties in the Active Viewport</source>
        <translation>&amp;Eigenschaften im aktiven Ansichtsfenster</translation>
    </message>
    <message>
        <source>Properties in the Active Viewport of &amp;Each Layout</source>
        <translation>Eigenschaften im aktiven Ansichtsfenster &amp;jedes Layouts</translation>
    </message>
    <message>
        <source>All &amp;but Current</source>
        <translation>&amp;Alle außer dem aktuellen</translation>
    </message>
    <message>
        <source>&amp;Clear</source>
        <translation>Auswahl auf&amp;heben</translation>
    </message>
    <message>
        <source>&amp;Invert</source>
        <translation>&amp;Umkehren</translation>
    </message>
    <message>
        <source>New Layer &amp;State...</source>
        <translation>Neuer Layer&amp;status...</translation>
    </message>
    <message>
        <source>Layer State &amp;Manager...</source>
        <translation>Layerstatus-&amp;Manager...</translation>
    </message>
    <message>
        <source>Remove Overrides of Se&amp;lected Layers</source>
        <translation>Übersch&amp;reibungen der gewählten Layer entfernen</translation>
    </message>
    <message>
        <source>Remove Overrides of &amp;All Layers</source>
        <translation>Überschreibungen aller La&amp;yer entfernen</translation>
    </message>
    <message>
        <source>In All Vie&amp;wports</source>
        <translation>In allen Ansichts&amp;fenstern</translation>
    </message>
    <message>
        <source>Selec&amp;t</source>
        <translation>Auswä&amp;hlen</translation>
    </message>
</context>
<context>
    <name>LayerDeletion</name>
    <message>
        <source>every drawing has it</source>
        <translation>er gehört zu jeder Zeichnung</translation>
    </message>
    <message>
        <source>it is current</source>
        <translation>er ist aktuell</translation>
    </message>
    <message>
        <source>objects lie on it</source>
        <translation>auf ihm liegen Objekte</translation>
    </message>
    <message>
        <source>it belongs to an external reference</source>
        <translation>er gehört zu einer externen Referenz</translation>
    </message>
    <message>
        <source>a setting of the drawing names it</source>
        <translation>eine Einstellung der Zeichnung nennt ihn</translation>
    </message>
</context>
<context>
    <name>LayerEdits</name>
    <message>
        <source>A name is needed.</source>
        <translation>Ein Name ist nötig.</translation>
    </message>
    <message>
        <source>A layer&apos;s name holds no control characters.</source>
        <translation>Der Name eines Layers enthält keine Steuerzeichen.</translation>
    </message>
</context>
<context>
    <name>PaneCommands</name>
    <message>
        <source>New Properties Filter</source>
        <translation>Neuer Eigenschaftenfilter</translation>
    </message>
    <message>
        <source>New Group Filter</source>
        <translation>Neuer Gruppenfilter</translation>
    </message>
    <message>
        <source>Layer States Manager</source>
        <translation>Layerstatus-Manager</translation>
    </message>
    <message>
        <source>New Layer</source>
        <translation>Neuer Layer</translation>
    </message>
    <message>
        <source>New Layer Frozen in New Viewports</source>
        <translation>Neuer, in neuen Ansichtsfenstern gefrorener Layer</translation>
    </message>
    <message>
        <source>Delete Layers (Del)</source>
        <translation>Layer löschen (Entf)</translation>
    </message>
    <message>
        <source>Set Current</source>
        <translation>Aktuell setzen</translation>
    </message>
    <message>
        <source>Show the Filter Tree</source>
        <translation>Filterbaum anzeigen</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Layer Settings</source>
        <translation>Layereinstellungen</translation>
    </message>
</context>
</TS>
