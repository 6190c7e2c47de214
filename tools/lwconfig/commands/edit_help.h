#pragma once

namespace lwconfig::tool {

inline constexpr const char* kSetHelp =
    R"(PATH leads to a property ('lwconfig get --help' tells how paths are written). VALUE is what its type has:
a text as it is; True or False; a whole number; the name or the number of an enumeration's value; a colour as
#rrggbb, in quotation marks for a shell, or as the number that JSON and programs have, 0xBBGGRR with red in
the low byte; for an object @ and its path, or null. A VALUE that begins with a dash follows '--'. A character
that XML does not have, such as most control characters, is refused, and so is a number that is no value of
the enumeration and no colour, unless the property has it already or in a new object.

What was changed is saved at once, by the object that keeps it: the template, the comment definitions, the
model comments, the external documentation or the comment file locations. Options go to the registry.
Languages, namespace profiles and plug-ins are only read by the model and cannot be changed. A model comment
profile with another name is saved to another file; its old file stays. Before anything is written the change
is saved and loaded again in memory: it is refused when the configuration could not be read any more, and when
no save keeps it, such as that of a template's version. A note tells of a value that is read in another form.
What is printed of a registry value are the arguments of 'lwconfig registry get'.

Examples:
  lwconfig set VBOptions.WrapCharacters 72
  lwconfig set 'PageTemplates[VBTechDoc].objFillColor' '#ffcc00'
  lwconfig set 'PageTemplates[VBTechDoc].PageLayouts[method.html].PageType' pgMethod --dry-run
  lwconfig set 'PageTemplates[1].TOCDefinitions[1].NodeDefs[2].PageLayout' '@PageTemplates[1].PageLayouts[3]'
)";

inline constexpr const char* kAddHelp =
    R"(PATH leads to a collection. A new item of its class is made, each MEMBER is set to its VALUE, as 'lwconfig
set' would, and the item is added at the end, or beside another one, under the key that its class has: a
layout's FileName, a node's Key, a tagged comment's TagIdentifier, an external source's NamespaceName, else
its Name. MEMBER may also be a path inside the item. To a collection of texts one TEXT is added, under itself
as its key. POSITION and KEY are written as in the brackets of a path. The collection is then saved.

Examples:
  lwconfig add 'PageTemplates[VBTechDoc].VariableDefs' Name=Editor Description=Editor VariableDefType=vdtText
  lwconfig add ExternalDocs 'NamespaceName=Hollweg.*' 'URLFormat=https://docs/%%FullName%%.html' --before 1
  lwconfig add 'PageTemplates[VBTechDoc].SupportedItemTypes' files
)";

inline constexpr const char* kRemoveHelp =
    R"(PATH leads to an item of a collection, by key or position. The collection is then saved. Templates and model
comment profiles have files of their own, which the model does not delete: remove those files instead.

Examples:
  lwconfig remove 'PageTemplates[VBTechDoc].VariableDefs[Department]'
  lwconfig remove 'CommentFileLocations[-1]' --dry-run
)";

inline constexpr const char* kCallHelp =
    R"(PATH leads to a method; each ARG is written as a VALUE of 'lwconfig set'. Where any value will do, a whole
number is a number; in quotation marks inside the ARG it is a text. NAME:=VALUE gives an argument by the name
of its parameter; a text that looks so has to be given like that itself. The result is printed as 'lwconfig get'
does, then a line NAME = VALUE for each argument that the method has filled. A method that writes files
itself writes them; anything else it changes is saved only with --save.

Examples:
  lwconfig call ExternalDocs.URL System.Collections.ArrayList
  lwconfig call GetDefaultTemplate LW.Core source
  lwconfig call TaggedCommentDefs.SaveTo 'C:\Backup\comments.xml'
)";

inline constexpr const char* kApplyHelp =
    R"(FILE holds one command on each line: set, add, remove or call, with the arguments that they have on the
command line. '-' is standard input. Words are separated by blanks and quoted as in a shell: '...' is taken as
it is, in "..." and outside a backslash takes the next character as it is, and # begins a comment. Nothing is
expanded. Quoted text may go on over several lines; a backslash at the end of a line continues it.

All commands are run and saved in memory first. Nothing is written unless all of them succeed; a failure is
told with file, line and column. Then each file is written in one step. Several files cannot be written in
one step: all new content is on the disk before the first file is replaced, and when one cannot be replaced,
those before it are put back as they were. An item that gets another name keeps its old key until the last
command is done.

Examples:
  lwconfig apply changes.txt --dry-run
  printf '%s\n' "set VBOptions.Grouped True" "remove 'ExternalDocs[-1]'" | lwconfig apply -
)";

}  // namespace lwconfig::tool
