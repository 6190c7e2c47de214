// Edits a template of the configuration and saves it. edit.txt has the same edits for the command of other systems.
var root = new ActiveXObject("LWConfigObjects.Root");
var template = root.PageTemplates.Item(1);
template.Name = "Gr\u00f6\u00dfe \u2013 \u65e5\u672c \ud83d\ude00 & <new>";
template.Description = "Two lines,\r\na \"quoted\" word\tand a tab";
template.objFillColor = 255;
template.UseDropShadow = true;

var layout = new ActiveXObject("LWConfigObjects.PageLayout");
layout.Name = "\u00dcbersicht";
layout.FileName = "overview.html";
layout.TitleTemplate = "%%projectname%%_\u00fcbersicht.html";
layout.PageType = 3;
template.PageLayouts.Add(layout, "overview.html", 2);

var nodes = template.TOCDefinitions.Item(1).NodeDefs;
nodes.Item(2).NodeCaptionTemplate = "Erste Schritte \u2192";
nodes.Item(2).MarkAsNew = true;
nodes.Remove(3);

template.VariableDefs.Item("companyname").Description = "Firma";
template.VariableDefs.Remove("AUDIENCE");

root.PageTemplates.SaveTemplate(template);
WScript.Echo("saved");
