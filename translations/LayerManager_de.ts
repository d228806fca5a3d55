<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_US">
<context>
    <name>CDlgLayPropFilter</name>
    <message>
        <source>Layer Filter Properties</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>E&amp;xpression:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The expression cannot be read. Criteria look like NAME==&quot;A*&quot; and are joined by AND and OR.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLayerListCtrl</name>
    <message>
        <source>Layers</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLayerPaneView</name>
    <message>
        <source>Displayed layers</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CLayerTreeVw</name>
    <message>
        <source>Layer filters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid Filter</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FilterTree</name>
    <message>
        <source>&amp;On</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>O&amp;ff</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Thawed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F&amp;rozen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Lock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Unlock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Freeze</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Thaw</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Isolate (Freeze Others)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Thaw Ot&amp;hers in Viewport</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New &amp;Properties Filter...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New &amp;Group Filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Convert to Group Filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Visibility</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter commands</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FilterTreeDelegate</name>
    <message>
        <source>Name of the filter</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FilterTreeModel</name>
    <message>
        <source>All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All used layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>External References</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layers in use</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Property filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Property filter of another program</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Group filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layers of external references</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>External reference</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New layers that were not reviewed</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KsResString</name>
    <message>
        <source>Vie&amp;wport</source>
        <comment>40116</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Select Layers</source>
        <comment>40117</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layer - Excess Layer Filters</source>
        <comment>40272</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are more layer filters in this drawing than layers. What do you want to do?</source>
        <comment>40273</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Extra layer filters might have been created in error. Too many layer filters can result in slower performance.</source>
        <comment>40274</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete all layer filters (recommended)</source>
        <comment>40275</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Retain all layer filters</source>
        <comment>40276</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>UnReconciled New Layers</source>
        <comment>84538</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid Characters in filter name.

Followinf characters are not valid in Filter names:
    %1</source>
        <comment>84539</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid Filter name.

 Filter name must be unique.</source>
        <comment>84540</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Status</source>
        <comment>84783</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layer Name</source>
        <comment>84772</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>On</source>
        <comment>84773</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Freeze</source>
        <comment>84774</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Locked</source>
        <comment>84775</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Color</source>
        <comment>84776</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Linetype</source>
        <comment>84777</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lineweight</source>
        <comment>84778</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plot Style</source>
        <comment>84779</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plot</source>
        <comment>84780</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New VPFreeze</source>
        <comment>84781</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Description</source>
        <comment>84784</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>VP Freeze</source>
        <comment>84785</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>VP Color</source>
        <comment>84786</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>VP LineType</source>
        <comment>84787</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>VP LineWeight</source>
        <comment>84788</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>VP PlotStyle</source>
        <comment>84789</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to modify layers while another command is active.</source>
        <comment>40182</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Multiple layers cannot be made current. please select a single layer.</source>
        <comment>40433</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The following characters are not valid in Layer Names:
</source>
        <comment>84506</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not yet supported</source>
        <comment>84508</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The Following Layers Cannot be deleted.
 .Layer 0 and Defpoints
 .current layer 
 .Layers containing objects 
 .xref-dependent layers</source>
        <comment>84515</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The following Layers Cannot be made current.
 .Xref dependent layers
 .Frozen layers</source>
        <comment>84516</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot freeze current layer. Specify a different layer</source>
        <comment>84782</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layer%d</source>
        <comment>84791</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The name cannot be longer than 255 characters</source>
        <comment>84919</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layer - Current Layer off</source>
        <comment>85403</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The current Layer will be turned off.What do you want to do?</source>
        <comment>85404</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Turn the current layer off 
 Objects that you create on will not be displayed in the drawing until you turn the layer back on</source>
        <comment>85405</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep the current layer on</source>
        <comment>85406</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The selected layer cannot be renamed.

 The following layers cannot be renamed: 
 1. Layer 0 
 2. Xref-dependent Layers</source>
        <comment>85989</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layer Properties Manager</source>
        <comment>84536</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press F1 for more help.</source>
        <comment>51575</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LayerCells</name>
    <message>
        <source>Off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>On</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frozen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Thawed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Locked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unlocked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plotted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not plotted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frozen in new viewports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Thawed in new viewports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frozen in the active viewport</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Thawed in the active viewport</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not in use</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In use</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LayerCommands</name>
    <message>
        <source>Layer commands</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set &amp;Current</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;New Layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Layer Frozen in All &amp;Viewports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change D&amp;escription</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rec&amp;oncile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Isolate (Turn Others Off)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Freeze</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Thaw</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In the &amp;Active Viewport</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In A&amp;ll Viewports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Properties in the Active Viewport</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Properties in the Active Viewport of &amp;Each Layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All &amp;but Current</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Clear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Invert</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>New Layer &amp;State...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Layer State &amp;Manager...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Overrides of Se&amp;lected Layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Overrides of &amp;All Layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In All Vie&amp;wports</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selec&amp;t</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LayerDeletion</name>
    <message>
        <source>every drawing has it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is current</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>objects lie on it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it belongs to an external reference</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a setting of the drawing names it</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LayerEdits</name>
    <message>
        <source>A name is needed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A layer&apos;s name holds no control characters.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
