// Walks a configuration as a script does: the folder is the argument.
function tell(text) { WScript.Echo(text); }
function each(collection, visit) {
  for (var items = new Enumerator(collection); !items.atEnd(); items.moveNext()) visit(items.item());
}
function fails(what, action) {
  try {
    action();
    tell(what + ": no error");
  } catch (e) {
    tell(what + ": " + (e.number & 0xFFFF) + " " + e.description);
  }
}

new ActiveXObject("LWConfigObjects.RegistryAccess")
    .SetValue(0x80000002 | 0, "Software\\Corvantis\\Lexiwend4", "ConfigPath", WScript.Arguments(0), 1);
var root = new ActiveXObject("LWConfigObjects.Root");
tell("folder known: " + (root.ConfigPath == WScript.Arguments(0)));

each(root.PageTemplates, function (template) {
  tell("template " + template.Name + ": " + template.PageLayouts.Count + " layouts, " + template.TemplateCategory);
});
var texts = [];
each(root.PageTemplates(1).EnabledPlugins, function (name) { texts.push(typeof name + " " + name); });
tell(texts.join(", "));
var variables = root.PageTemplates(1).VariableDefs;
each(variables, function (variable) { tell("variable " + variable.Name + " type " + variable.VariableDefType); });

// Text of any script comes back as it was.
var layout = new ActiveXObject("LWConfigObjects.PageLayout");
layout.Name = "\u00e4\u20ac\ud83d\ude00";
tell("same text: " + (layout.Name === "\u00e4\u20ac\ud83d\ude00") + " " + layout.Name.length);

// null, identity, objects by reference
var layouts = root.PageTemplates.Item(1).PageLayouts;
tell("absent: " + (layouts.Item("absent") === null));
tell("default template: " + (root.GetDefaultTemplate("no such profile") === null));
var node = new ActiveXObject("LWConfigObjects.NodeDef");
var parent = new ActiveXObject("LWConfigObjects.NodeDef");
node.ParentNodeDef = parent;
tell("parent: " + (node.ParentNodeDef == parent));
node.ParentNodeDef = null;
tell("parent: " + (node.ParentNodeDef === null));

// Values of every type
layout.PageType = 3;
tell(typeof layout.PageType + " " + typeof layout.IsHTMLHelpProjectFile + " " + typeof layout.Name);
var comment = new ActiveXObject("LWConfigObjects.ModelComment");
tell("empty: " + typeof comment.Tag);
comment.Tag = 7;
tell("number: " + comment.Tag);
comment.Tag = layout;
tell("object: " + (comment.Tag == layout) + " " + comment.Tag.PageType);

var names = new ActiveXObject("LWConfigObjects.Collection");
names.Add("b", "second");
names.Add("a", "", 1);
tell(names.Item(1) + names.Item("SECOND") + names.Count);
texts = [];
each(names, function (name) { texts.push(name); });
tell(texts.join(","));

fails("absent member", function () { names.Absent(); });
fails("read-only", function () { names.Count = 3; });
fails("missing argument", function () { names.Add(); });
fails("too many arguments", function () { names.Add("a", "b", 1, 2, 3); });
fails("wrong class", function () { layouts.Add(node); });
fails("foreign object", function () { layouts.Add({}); });
fails("no number", function () { layout.DependantCount = "many"; });
tell("done");
