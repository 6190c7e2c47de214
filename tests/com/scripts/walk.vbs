Option Explicit
' Walks a configuration as a script does: the folder is the argument.
Dim root, item, found, count, layouts, layout

Sub Failure(what)
  WScript.Echo what & ": " & Err.Number & " (" & (Err.Number And 65535) & ") " & Err.Description & " [" & Err.Source & "]"
  Err.Clear
End Sub

Set root = CreateObject("LWConfigObjects.Root")
WScript.Echo "folder known: " & (root.ConfigPath = WScript.Arguments(0))

' For Each, over collections of objects
For Each item In root.PageTemplates
  WScript.Echo "template " & item.Name & ": " & item.PageLayouts.Count & " layouts, " & item.TOCDefinitions.Count & " contents, " & item.VariableDefs.Count & " variables"
Next
For Each item In root.Languages
  WScript.Echo "language " & item.Name & " " & TypeName(item.IncludeFlag)
Next
For Each item In root.NamespaceProfiles
  WScript.Echo "profile " & item.Name & ": " & item.Count & " of " & item.AllNamespaceDefs().Count
Next
count = 0
For Each item In root.TaggedCommentDefs
  count = count + 1
Next
WScript.Echo "comments " & (count = root.TaggedCommentDefs.Count) & ", profiles " & root.ModelCommentProfiles.Count & ", plug-ins " & root.PlugIns.Count & ", sources " & root.ExternalDocs.Count

' Collections of strings
For Each item In root.PageTemplates(1).NamespaceProfileNames
  WScript.Echo TypeName(item) & " " & item
Next

' Default members, by position and key in any letter case, and identity
Set layouts = root.PageTemplates(1).PageLayouts
Set layout = layouts(1)
WScript.Echo "same by key: " & (layouts(UCase(layout.FileName)) Is layout)
WScript.Echo "same again: " & (root.PageTemplates(1).PageLayouts Is layouts)
WScript.Echo "same root: " & (CreateObject("LWConfigObjects.Root").PageTemplates Is root.PageTemplates)
WScript.Echo "copy is the same: " & (layout.Clone() Is layout)

' Nothing, given and taken
WScript.Echo "absent: " & (layouts("absent") Is Nothing) & " " & (layouts(0) Is Nothing)
WScript.Echo "default template: " & root.GetDefaultTemplate("LW.Core").Name
WScript.Echo "default template: " & (root.GetDefaultTemplate("LW.Core", "nothing such") Is Nothing)

' Set of object properties
Dim node, parent
Set node = CreateObject("LWConfigObjects.NodeDef")
Set parent = CreateObject("LWConfigObjects.NodeDef")
WScript.Echo "parent: " & (node.ParentNodeDef Is Nothing)
Set node.ParentNodeDef = parent
WScript.Echo "parent: " & (node.ParentNodeDef Is parent)
Set node.ParentNodeDef = Nothing
WScript.Echo "parent: " & (node.ParentNodeDef Is Nothing)

' An argument that is left out
Dim names
Set names = CreateObject("LWConfigObjects.Collection")
names.Add "b", "second"
names.Add "a", , "second"
WScript.Echo names(1) & names("SECOND") & names.Count

' Errors that have a name and number
On Error Resume Next
names.Add "d", "second"
WScript.Echo "without the component a failure is told by a message box: " & Err.Number & " " & names.Count
names.Absent
Failure "absent member"
names.Count = 3
Failure "read-only"
Set item = CreateObject("LWConfigObjects.XMLElement")
Failure "not to be created"
WScript.Echo "done"
