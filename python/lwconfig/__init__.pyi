"""The configuration object model of Lexiwend.

Written by `lwconfig describe --stubs`; not to be edited. Positions count from 1 in the published members, such as
`Item`, and from 0 between square brackets. What the published members call null is `None` here. Arguments that are
passed by reference and are no objects come back behind the result, as a tuple.
"""

from collections.abc import Callable, Iterator
from enum import IntEnum
from os import PathLike
from types import TracebackType
from typing import Any, Generic, Literal, TypeVar, overload

import lwconfig
from lwconfig._failures import *

__version__: str

_T = TypeVar("_T")

class _Owned(Generic[_T]):
    # None takes the object away; until then there is one.
    @overload
    def __get__(self, instance: None, owner: type) -> _Owned[_T]: ...
    @overload
    def __get__(self, instance: object, owner: type) -> _T: ...
    def __set__(self, instance: object, value: _T | None) -> None: ...

class _FilePath:
    @overload
    def __get__(self, instance: None, owner: type) -> _FilePath: ...
    @overload
    def __get__(self, instance: object, owner: type) -> str: ...
    def __set__(self, instance: object, value: str | PathLike[str]) -> None: ...

class Object:
    """What all published classes are derived from."""

class Connection:
    """The connection of a callback to an event. It lasts until it is closed, by a `with` block too, or destroyed."""

    def close(self) -> None:
        """Closes the connection; does nothing if it is closed."""
    def __enter__(self) -> Connection: ...
    def __exit__(
        self, kind: type[BaseException] | None, value: BaseException | None, trace: TracebackType | None
    ) -> None: ...

def set_message_box_handler(handler: Callable[[str, str, int], object] | None) -> None:
    """Shows message boxes of the library by `handler(title, text, icon)`; None writes them to standard error."""

def NativePath(path: str | PathLike[str]) -> str:
    """The path of this system for a path in the product's notation."""

class Problem:
    """One finding about a configuration, or a summary of `count` others of its kind in the file."""

    @property
    def code(self) -> str:
        """The kind of problem, such as "unknown-layout"."""
    @property
    def severity(self) -> Literal["error", "warning"]: ...
    @property
    def file(self) -> str | None: ...
    @property
    def line(self) -> int | None:
        """From 1, as the column."""
    @property
    def column(self) -> int | None: ...
    @property
    def path(self) -> str | None:
        """The object concerned, such as "PageTemplates[House]", where it is known."""
    @property
    def message(self) -> str: ...
    @property
    def suggestion(self) -> str | None:
        """The text most likely meant."""
    @property
    def count(self) -> int: ...

def check(folder: str | PathLike[str] | None = None) -> list[Problem]:
    """Loads the whole configuration in a folder, or the registered one, and finds what is wrong with it.
    `FileNotFoundError` for a folder that does not exist, and where none is registered. Shared objects are loaded
    anew on their next use; changes that are not saved are lost."""

def find(path: str) -> Any:
    """The object or value at a path from the root, such as the `path` of a problem or
    `PageTemplates["House style"].PageLayouts[-1].TitleTemplate`. `KeyError` for a path that leads to nothing,
    `ValueError` for a text that is no path."""

class _Configuration:
    def __enter__(self) -> Root: ...
    def __exit__(
        self, kind: type[BaseException] | None, value: BaseException | None, trace: TracebackType | None
    ) -> None: ...

def configuration(folder: str | PathLike[str]) -> _Configuration:
    """A `with` block in which this process works on the configuration in a folder, whatever is registered. It
    gives a new `Root`. `FileNotFoundError` for a folder that does not exist. Blocks nest. Shared objects are
    loaded anew at both ends; do not save objects of the block after it."""

class Transaction:
    """Files and registry values saved in the block are written together when it is left, or not at all after an
    exception. After that, and after `roll_back`, objects are loaded anew on their next use."""

    def __enter__(self) -> Transaction: ...
    def __exit__(
        self, kind: type[BaseException] | None, value: BaseException | None, trace: TracebackType | None
    ) -> None: ...
    def difference(self) -> str:
        """The changes so far as a unified diff."""
    def commit(self) -> None:
        """Writes the changes now. Error 70, a `PermissionError`, for a file or value that was changed elsewhere
        since it was first read here; nothing is written then. Later saves are written at once."""
    def roll_back(self) -> None:
        """Drops the changes. Later saves are written at once."""

def transaction() -> Transaction:
    """A transaction for a `with` block. Blocks nest."""

class PageTypeEnum(IntEnum):
    """Kinds of page: a standard page not tied to a kind of code element, or one produced per code element."""

    pgStandard = 0  # not tied to a kind of code element
    pgobject = 1  # an object: a class or module
    pgcollection = 2  # a collection object
    pgMethod = 3  # a method
    pgProperty = 4  # a property
    pgEvent = 5  # an event
    pgEnumeration = 6  # an enumeration
    pgUDT = 7  # a structure
    pgLibrary = 8  # a library
    pgDeclaration = 9  # a declare statement
    pgProject = 10  # a project
    pgModule = 11  # a module
    pgInterface = 12  # an implemented interface
    pgProjectGroup = 13  # a project group
    pgSourceCode = 14  # source code
    pgExample = 15  # an example

pgStandard = PageTypeEnum.pgStandard
pgobject = PageTypeEnum.pgobject
pgcollection = PageTypeEnum.pgcollection
pgMethod = PageTypeEnum.pgMethod
pgProperty = PageTypeEnum.pgProperty
pgEvent = PageTypeEnum.pgEvent
pgEnumeration = PageTypeEnum.pgEnumeration
pgUDT = PageTypeEnum.pgUDT
pgLibrary = PageTypeEnum.pgLibrary
pgDeclaration = PageTypeEnum.pgDeclaration
pgProject = PageTypeEnum.pgProject
pgModule = PageTypeEnum.pgModule
pgInterface = PageTypeEnum.pgInterface
pgProjectGroup = PageTypeEnum.pgProjectGroup
pgSourceCode = PageTypeEnum.pgSourceCode
pgExample = PageTypeEnum.pgExample

class NodeTypeEnum(IntEnum):
    """Kinds of node."""

    ntStandard = 0  # a single node of the contents
    ntSmart = 1  # repeats for every code element of one kind
    ntPlugIn = 2  # is produced by a plug-in

ntStandard = NodeTypeEnum.ntStandard
ntSmart = NodeTypeEnum.ntSmart
ntPlugIn = NodeTypeEnum.ntPlugIn

class DependantOnEnum(IntEnum):
    """Kinds of item on whose existence a node depends; 0 is none."""

    depMethods = 1  # `LW:Method`
    depProperties = 2  # `LW:Property`
    depEvents = 3  # `LW:Event`
    depEnumerations = 4  # `LW:Enumeration`
    depUDTs = 5  # structures, `LW:Structure`
    depLibraries = 6  # `LW:Library`
    depInterfaces = 7  # `LW:ImplementedInterface`
    depProjects = 8  # `LW:Project`

depMethods = DependantOnEnum.depMethods
depProperties = DependantOnEnum.depProperties
depEvents = DependantOnEnum.depEvents
depEnumerations = DependantOnEnum.depEnumerations
depUDTs = DependantOnEnum.depUDTs
depLibraries = DependantOnEnum.depLibraries
depInterfaces = DependantOnEnum.depInterfaces
depProjects = DependantOnEnum.depProjects

class VariableDefTypeEnum(IntEnum):
    """Kinds of value that a variable can have."""

    vdtText = 0  # plain text
    vdtHTML = 1  # markup
    vdtNumber = 2  # a number
    vdtDate = 3  # a date
    vdtColor = 4  # a colour

vdtText = VariableDefTypeEnum.vdtText
vdtHTML = VariableDefTypeEnum.vdtHTML
vdtNumber = VariableDefTypeEnum.vdtNumber
vdtDate = VariableDefTypeEnum.vdtDate
vdtColor = VariableDefTypeEnum.vdtColor

class ElementTypeEnum(IntEnum):
    """Kinds of code element that a comment can belong to. There is no 7."""

    etUnspecified = 0  # no kind in particular
    etProjectGroup = 1  # a project group
    etProject = 2  # a project
    etModule = 3  # a module
    etBlock = 4  # a method or property
    etVariable = 5  # a variable
    etParameter = 6  # a parameter
    etEvent = 8  # an event
    etEnumeration = 9  # an enumeration
    etEnumerationMember = 10  # a member of an enumeration
    etUDT = 11  # a structure
    etUDTMember = 12  # a member of a structure
    etDeclaration = 13  # a declaration
    etInterface = 14  # an implemented interface

etUnspecified = ElementTypeEnum.etUnspecified
etProjectGroup = ElementTypeEnum.etProjectGroup
etProject = ElementTypeEnum.etProject
etModule = ElementTypeEnum.etModule
etBlock = ElementTypeEnum.etBlock
etVariable = ElementTypeEnum.etVariable
etParameter = ElementTypeEnum.etParameter
etEvent = ElementTypeEnum.etEvent
etEnumeration = ElementTypeEnum.etEnumeration
etEnumerationMember = ElementTypeEnum.etEnumerationMember
etUDT = ElementTypeEnum.etUDT
etUDTMember = ElementTypeEnum.etUDTMember
etDeclaration = ElementTypeEnum.etDeclaration
etInterface = ElementTypeEnum.etInterface

class WrapTypeEnum(IntEnum):
    """How several comments of one type on one element are joined."""

    WrapNone = 1  # one after the other
    WrapBreak = 2  # each on a new line
    WrapParagraph = 3  # each in a paragraph

WrapNone = WrapTypeEnum.WrapNone
WrapBreak = WrapTypeEnum.WrapBreak
WrapParagraph = WrapTypeEnum.WrapParagraph

class mcInsertionPointEnum(IntEnum):
    """The position of a model comment's text in an existing comment."""

    ctPrefix = 2  # before the existing text
    ctSuffix = 3  # after the existing text

ctPrefix = mcInsertionPointEnum.ctPrefix
ctSuffix = mcInsertionPointEnum.ctSuffix

class mcMemberTypeEnum(IntEnum):
    """Kinds of member that a model comment applies to."""

    mtMethod = 1  # `LW:Method`
    mtProperty = 2  # `LW:Property`
    mtEvent = 3  # `LW:Event`
    mtEnumeration = 4  # `LW:Enumeration`
    mtUDT = 5  # structures, `LW:Structure`
    mtInterface = 6  # `LW:ImplementedInterface`
    mtModule = 7  # `LW:Module`

mtMethod = mcMemberTypeEnum.mtMethod
mtProperty = mcMemberTypeEnum.mtProperty
mtEvent = mcMemberTypeEnum.mtEvent
mtEnumeration = mcMemberTypeEnum.mtEnumeration
mtUDT = mcMemberTypeEnum.mtUDT
mtInterface = mcMemberTypeEnum.mtInterface
mtModule = mcMemberTypeEnum.mtModule

class LWToolBarStyleEnum(IntEnum):
    """The appearance of toolbars."""

    ToolbarStyleOfficeXP = 0  # flat
    ToolbarStyleOffice2003 = 1  # in the colours of the desktop theme
    ToolbarStyleOffice2003NoThemes = 2  # the same without themes

ToolbarStyleOfficeXP = LWToolBarStyleEnum.ToolbarStyleOfficeXP
ToolbarStyleOffice2003 = LWToolBarStyleEnum.ToolbarStyleOffice2003
ToolbarStyleOffice2003NoThemes = LWToolBarStyleEnum.ToolbarStyleOffice2003NoThemes

class CommentEditorViewEnum(IntEnum):
    """The comments that a comment editor shows at once."""

    CommentEditViewFull = 0  # every comment
    CommentEditViewCombo = 1  # one comment, chosen from a list

CommentEditViewFull = CommentEditorViewEnum.CommentEditViewFull
CommentEditViewCombo = CommentEditorViewEnum.CommentEditViewCombo

class LWVSWindowStyleEnum(IntEnum):
    """The window in which comments are edited."""

    LWVSWindowStyleDocumentWindow = 0  # a document window
    LWVSWindowStyleToolWindow = 1  # a tool window
    LWVSWindowStyleExternal = 2  # a window outside the editor

LWVSWindowStyleDocumentWindow = LWVSWindowStyleEnum.LWVSWindowStyleDocumentWindow
LWVSWindowStyleToolWindow = LWVSWindowStyleEnum.LWVSWindowStyleToolWindow
LWVSWindowStyleExternal = LWVSWindowStyleEnum.LWVSWindowStyleExternal

class BlockPositionEnum(IntEnum):
    """The position of the comments of a block of code."""

    BlockPositionInside = 0  # inside the block
    BlockPositionOutside = 1  # outside the block

BlockPositionInside = BlockPositionEnum.BlockPositionInside
BlockPositionOutside = BlockPositionEnum.BlockPositionOutside

class CommentModeEnum(IntEnum):
    """The storage of comments."""

    ModeDocComments = 0  # in XML documentation comments
    ModeVBCode = 1  # in Visual Basic comments
    ModeCommentFile = 2  # in a comment file

ModeDocComments = CommentModeEnum.ModeDocComments
ModeVBCode = CommentModeEnum.ModeVBCode
ModeCommentFile = CommentModeEnum.ModeCommentFile

class LWIPCCommandEnum(IntEnum):
    """The commands that the product's tools send each other."""

    LWIPCIsLWProjectSelected = 100  # asks whether a project is selected
    LWIPCOpenLWProject = 101  # opens a project
    LWIPCIsFileLoaded = 102  # asks whether a file is loaded
    LWIPCReloadVBProject = 103  # reloads a Visual Basic project

LWIPCIsLWProjectSelected = LWIPCCommandEnum.LWIPCIsLWProjectSelected
LWIPCOpenLWProject = LWIPCCommandEnum.LWIPCOpenLWProject
LWIPCIsFileLoaded = LWIPCCommandEnum.LWIPCIsFileLoaded
LWIPCReloadVBProject = LWIPCCommandEnum.LWIPCReloadVBProject

class Root(Object):
    """The entry point to the configuration. Every `Root` of the process returns the same objects, created and
    loaded on first request. After the last `Root` is destroyed, the next one loads afresh. An error during
    the load of a collection is rethrown; the part that was loaded stays shared, and the next request returns
    it. Nothing is saved automatically. For use from one thread."""

    def __init__(self) -> None: ...
    @property
    def ExternalDocs(self) -> lwconfig.ExternalDocs:
        """The sources of external documentation."""
    @property
    def Languages(self) -> lwconfig.Languages:
        """The programming languages; none where their file is missing."""
    @property
    def PlugIns(self) -> lwconfig.PlugIns:
        """The plug-ins of the configuration."""
    @property
    def ModelCommentProfiles(self) -> lwconfig.ModelCommentProfiles:
        """The model comment profiles."""
    @property
    def PageTemplates(self) -> lwconfig.PageTemplates:
        """The catalogue of page templates. Loads the namespace profiles first where they are not loaded yet."""
    @property
    def NamespaceProfiles(self) -> lwconfig.NamespaceProfiles:
        """The namespace profiles."""
    @property
    def TaggedCommentDefs(self) -> lwconfig.TaggedCommentDefs:
        """The types of tagged comment."""
    @property
    def TemplatePath(self) -> str:
        """The templates folder; "\\Templates" while no configuration is registered."""
    @property
    def AppPath(self) -> str:
        """The installation folder as registered, or empty."""
    @property
    def CommentFileLocations(self) -> Any:
        """The comment files of .NET assemblies."""
    @property
    def DotNetPath(self) -> str:
        """The folder of the newest .NET Framework version, with trailing backslash."""
    def ResetLWConfig(self) -> None:
        """Drops every shared object, so that the next request loads afresh. Holders of an object keep it."""
    @property
    def ConfigPath(self) -> str:
        """The configuration folder without trailing backslash, or empty."""
    def ReplaceTaggedCommentDefs(self, TaggedCommentDefs: lwconfig.TaggedCommentDefs | None) -> None:
        """Makes the given object the shared one, until the next reset or replacement. Error 91 for none."""
    def ReplaceModelCommentProfiles(self, ModelCommentProfiles: lwconfig.ModelCommentProfiles | None) -> None:
        """Makes the given object the shared one, until the next reset or replacement. Error 91 for none."""
    def ReplaceExternalDocs(self, ExternalDocs: lwconfig.ExternalDocs | None) -> None:
        """Makes the given object the shared one, until the next reset or replacement. Error 91 for none."""
    def ReplaceCommentFileLocations(self, CommentFileLocations: lwconfig.CommentFileLocations | None) -> None:
        """Makes the given object the shared one, until the next reset or replacement. Error 91 for none."""
    @property
    def VSNETOptions(self) -> lwconfig.VSNETOptions:
        """The user's options. They cache no values: each read and write accesses the registry."""
    @property
    def VBOptions(self) -> lwconfig.VBOptions:
        """The user's options. They cache no values: each read and write accesses the registry."""
    @property
    def LWCommenterOptions(self) -> lwconfig.LWCommenterOptions:
        """The user's options. They cache no values: each read and write accesses the registry."""
    @property
    def IDEOptions(self) -> lwconfig.IDEOptions:
        """The user's options. They cache no values: each read and write accesses the registry."""
    @property
    def SpellingOptions(self) -> lwconfig.SpellingOptions:
        """The user's options. They cache no values: each read and write accesses the registry."""
    def GetDefaultTemplate(self, NamespaceProfile: str, Supports: str | None = ...) -> lwconfig.PageTemplate | None:
        """The first template, in catalogue order, that lists the namespace profile and, unless `Supports` is
        empty, whose item types joined by "," contain it; both without regard to letter case. Null where there
        is none."""
    DefaultToolbarStyle: lwconfig.LWToolBarStyleEnum | int
    """The toolbar style of tools without their own: shared by every `Root` of the process, in memory only."""
    ReloadFlag: bool
    """A flag for clients, shared by every `Root` of the process; a reset does not change it."""

class PageTemplates(Object):
    """The catalogue of page templates: one for every folder below the templates folder with a `config.xml`."""

    def __init__(self) -> None: ...
    TemplateFolder: _FilePath
    """The folder under which templates are found and saved; `Load` sets it from the configuration path."""
    def Item(self, Key: Any) -> lwconfig.PageTemplate | None:
        """As of every collection; a text that is no key finds the first template of that name, letter case
        ignored.

        Every collection: the item at that position or under that key, or null."""
    def Remove(self, Key: Any) -> None:
        """Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
        out of range."""
    def Add(self, obj: lwconfig.PageTemplate | None, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """As of every collection, but a key that is present shows a message box: nothing is added or raised.

        Every collection: inserts the object before the item that `Before` names, else after the one that
        `After` names, else at the end. An empty key is none. Error 457 for a key that is present, 5 or 9
        where `Before` or `After` names no item, 91 for no object; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def Load(self) -> None:
        """Replaces the catalogue by the templates on disk, without keys, in the order in which their folders
        are listed, without hidden ones. A missing templates folder shows a message box and leaves the
        catalogue empty. A failing template stops the load, and the templates before it are kept."""
    def Save(self) -> None:
        """Saves every template, in order. The first failure stops the save."""
    def SaveTemplate(self, pt: lwconfig.PageTemplate | None) -> None:
        """Writes the template's `config.xml` to its folder, created when missing. An older `config.xml` is
        first copied to `config.xml.bak`, the only backup; when that fails, `config.xml` is not touched."""
    def __call__(self, Key: Any) -> lwconfig.PageTemplate | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.PageTemplate]: ...
    def __reversed__(self) -> Iterator[lwconfig.PageTemplate]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.PageTemplate: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.PageTemplate]: ...

class PageTemplate(Object):
    """One look and feel of the generated documentation: a folder of page layouts and the settings in its
    `config.xml`."""

    def __init__(self) -> None: ...
    RootFolder: _FilePath
    """The template's folder, with trailing backslash."""
    Name: str
    """The display name, by which the catalogue finds the template."""
    Description: str
    """Description of the template."""
    objFillColor: int
    """Relationship diagrams: colour that fills an object."""
    objTextColor: int
    """Relationship diagrams: colour of the text of an object."""
    objBorderColor: int
    """Relationship diagrams: colour of the border of an object."""
    colFillColor: int
    """Relationship diagrams: colour that fills a collection object."""
    colTextColor: int
    """Relationship diagrams: colour of the text of a collection object."""
    colBorderColor: int
    """Relationship diagrams: colour of the border of a collection object."""
    UseDropShadow: bool
    """Whether diagram items have a drop shadow."""
    CenterCaptions: bool
    """Whether captions of diagram items are centred."""
    BorderWidth: int
    """Width of the borders of diagram items."""
    DiagramBold: bool
    """Whether captions in diagrams are bold. At first True."""
    UseDiagramShapes: bool
    """Whether diagrams use shapes."""
    TOCDefinitions: _Owned[lwconfig.TOCDefinitions]
    """The tables of contents, filed under their names."""
    VariableDefs: _Owned[lwconfig.VariableDefs]
    """The variables, filed under their names."""
    DefTOCVBProject: str
    """Default contents definition for a single project."""
    DefTOCVBProjectGroup: str
    """Default contents definition for several projects."""
    DefTOCMixture: str
    """Default contents definition for sources and components together."""
    DefTOCComponent: str
    """Default contents definition for a single compiled component."""
    DefTOCComponentGroup: str
    """Default contents definition for several compiled components."""
    EnabledPlugins: _Owned[lwconfig.Collection]
    """The names of the plug-ins that the template enables, each filed under itself."""
    NamespaceDefs: _Owned[lwconfig.NamespaceDefs]
    """The definitions of its namespace profiles."""
    NoStandardSupport: bool
    """Kept for other tools."""
    TemplateCategory: str
    """The category under which the template is offered."""
    Supports: str
    """Free text."""
    StyleSheet: str
    """Relative path of the style sheet."""
    Version: str
    """Version of the file as read; a save writes the current one."""
    Languages: str
    """Free text."""
    SupportedItemTypes: _Owned[lwconfig.Collection]
    """Item types that the template supports, such as "source", each filed under itself."""
    PageLayouts: _Owned[lwconfig.PageLayouts]
    """The layouts, filed under their file names. When set: replaces the layouts; the template then listens to
    the new collection only."""
    @property
    def PlugIns(self) -> lwconfig.PlugIns:
        """The shared plug-ins that the template enables, filed under their names. Built on the first request
        and then kept. Two plug-ins of one enabled name are error 457; the list keeps the first."""
    @property
    def NamespaceProfileNames(self) -> lwconfig.Collection:
        """The names of the namespace profiles that the template uses, in load order, including unknown ones."""
    def SupportsItemType(self, Name: str) -> bool:
        """Whether the item type is among `SupportedItemTypes`, letter case ignored."""
    def Clone(self) -> lwconfig.PageTemplate:
        """A copy with layouts, variables and contents definitions of its own. It shares the namespace
        definitions and profile names with this template, and has no phrases or scraps."""
    def Load(self, e: lwconfig.XMLElement | None) -> None:
        """Reads the root element of `config.xml`; `RootFolder` has been set. "Name" and "Description" are
        required. A failure stops the load, and everything read before it is kept."""
    def Save(self, e: lwconfig.XMLElement | None) -> None:
        """Names the element `PageTemplate` and writes the template to it, in the current version of the
        format."""
    Scraps: lwconfig.Collection | None
    """The fixed texts of the loaded output language, filed under their names: short phrases, and scraps of
    HTML. Null before the first load. When set: the loaded language does not change."""
    Phrases: lwconfig.Collection | None
    """The fixed texts of the loaded output language, filed under their names: short phrases, and scraps of
    HTML. Null before the first load. When set: the loaded language does not change."""
    def ScrapNames(self) -> lwconfig.Collection:
        """The names in the file of the loaded language, each filed under itself, read anew on every call."""
    def PhraseNames(self) -> lwconfig.Collection:
        """The names in the file of the loaded language, each filed under itself, read anew on every call."""
    def LoadPhrasesAndScraps(self, Language: str) -> None:
        """Loads the phrases and then the scraps of a language, unless they are the loaded ones (letter case
        counts); none where it has no file. Error 52 for a language that would lead out of their folders, 5
        for an element without a name. A failure stops the load, and the texts before it are kept."""
    def Phrase(self, Name: str) -> str:
        """The phrase of that name, letter case ignored; "!MISSING PHRASE 'Name'!" where there is none."""
    def Scrap(self, Name: str) -> str:
        """The scrap of that name, letter case ignored; "!MISSING Scrap 'Name'!" where there is none."""
    def on(self, event: Literal["PageLayoutsChange"], callback: Callable[[], object], /) -> lwconfig.Connection:
        """Calls the callback at every event of that name, as long as the connection lives and is not closed.

        `PageLayoutsChange`: Raised after every successful `Add` to `PageLayouts`."""

class PageLayouts(Object):
    """The layouts of a template, filed under their file names."""

    def __init__(self) -> None: ...
    def Item(self, Key: Any) -> lwconfig.PageLayout | None:
        """The item at that position or under that key, or null."""
    def Remove(self, Key: Any) -> None:
        """Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
        out of range."""
    def Add(self, obj: lwconfig.PageLayout | None, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """Inserts the object before the item that `Before` names, else after the one that `After` names, else
        at the end. An empty key is none. Error 457 for a key that is present, 5 or 9 where `Before` or
        `After` names no item, 91 for no object; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def on(self, event: Literal["ContentsChange"], callback: Callable[[], object], /) -> lwconfig.Connection:
        """Calls the callback at every event of that name, as long as the connection lives and is not closed.

        `ContentsChange`: Raised at the end of every successful `Add`."""
    def __call__(self, Key: Any) -> lwconfig.PageLayout | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.PageLayout]: ...
    def __reversed__(self) -> Iterator[lwconfig.PageLayout]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.PageLayout: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.PageLayout]: ...

class PageLayout(Object):
    """One file of a template folder: a page from which output pages are produced, or a help project file."""

    def __init__(self) -> None: ...
    Name: str
    """Kept for other tools."""
    FileName: _FilePath
    """Within the template folder; the key in `PageLayouts`."""
    PageType: lwconfig.PageTypeEnum | int
    """Kind of page; -1 where the file had no usable value. At first `pgStandard`."""
    TitleTemplate: str
    """File-name template of the pages produced, with variables in %%."""
    NodeTag: str
    """For the caller's use; neither loaded nor saved."""
    ControlTag: str
    """For the caller's use; neither loaded nor saved."""
    Namespace: str
    """Code element names, joined by ","."""
    DependantOnNamespace: str
    """Code element name of the items that the page depends on."""
    DependantOnNamespace_Filter: str
    """Filter for these items, kept as it is."""
    DependantCount: int
    """The number of items that the page depends on. At first `-1`."""
    @property
    def IsHTMLHelpProjectFile(self) -> bool:
        """Whether `FileName` has the extension of a help project, contents, index or similar file."""
    def Clone(self) -> Any:
        """A copy of all stored properties."""
    def Load(self, e: lwconfig.XMLElement | None) -> None:
        """Reads a `PageLayout` element. "Name", "FileName" and "TitleTemplate" are required: error 5 stops
        the load where one is missing, and everything read before it is kept."""
    def Save(self, e: lwconfig.XMLElement | None) -> None:
        """Names the element `PageLayout` and writes all properties but the two tags to it."""

class TOCDefinitions(Object):
    """The contents definitions of a template, filed under their names."""

    def __init__(self) -> None: ...
    def Item(self, Key: Any) -> lwconfig.TOCDefinition | None:
        """The item at that position or under that key, or null."""
    def Remove(self, Key: Any) -> None:
        """Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
        out of range."""
    def Add(self, obj: lwconfig.TOCDefinition | None, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """Inserts the object before the item that `Before` names, else after the one that `After` names, else
        at the end. An empty key is none. Error 457 for a key that is present, 5 or 9 where `Before` or
        `After` names no item, 91 for no object; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def __call__(self, Key: Any) -> lwconfig.TOCDefinition | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.TOCDefinition]: ...
    def __reversed__(self) -> Iterator[lwconfig.TOCDefinition]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.TOCDefinition: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.TOCDefinition]: ...

class TOCDefinition(Object):
    """One table of contents of a template: the tree of its nodes."""

    def __init__(self) -> None: ...
    Name: str
    """The key in `TOCDefinitions`."""
    Description: str
    """Description of the contents."""
    NodeDefs: _Owned[lwconfig.NodeDefs]
    """Its nodes, filed under their keys."""
    PageTemplate: lwconfig.PageTemplate | None
    """The template that owns this definition, or null. When set: the template is not kept alive."""
    def Load(self, e: lwconfig.XMLElement | None, PageTemplate: lwconfig.PageTemplate | None) -> None:
        """Reads a `TOCDefinition` element of the template. "Name" and "Description" are required. A missing
        one (error 5), a failing node or a repeated key (457) stops the load, and the nodes before it are
        kept."""
    def Save(self, e: lwconfig.XMLElement | None) -> None:
        """Writes all stored properties to the element, which the caller has named."""
    def Clone(self, PageTemplate: lwconfig.PageTemplate | None) -> lwconfig.TOCDefinition:
        """A deep copy owned by the given template."""

class NodeDefs(Object):
    """The nodes of a contents definition, flat, filed under their keys."""

    def __init__(self) -> None: ...
    def Item(self, Key: Any) -> lwconfig.NodeDef | None:
        """The item at that position or under that key, or null."""
    def Remove(self, Key: Any) -> None:
        """Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
        out of range."""
    def Add(self, obj: lwconfig.NodeDef | None, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """Inserts the object before the item that `Before` names, else after the one that `After` names, else
        at the end. An empty key is none. Error 457 for a key that is present, 5 or 9 where `Before` or
        `After` names no item, 91 for no object; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def Clone(self, TOCDefinition: lwconfig.TOCDefinition | None = ...) -> lwconfig.NodeDefs:
        """A deep copy whose nodes belong to the given definition and have each other as parents."""
    def __call__(self, Key: Any) -> lwconfig.NodeDef | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.NodeDef]: ...
    def __reversed__(self) -> Iterator[lwconfig.NodeDef]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.NodeDef: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.NodeDef]: ...

class NodeDef(Object):
    """One node of a contents tree. Nodes form the tree through parent keys; parent and owner are not kept
    alive."""

    def __init__(self) -> None: ...
    Key: str
    """"N" and a number; the key in `NodeDefs`."""
    NodeType: lwconfig.NodeTypeEnum | int
    """The kind of the node. At first `ntStandard`."""
    UseCustomIcon: bool
    """Whether the icon is `NodeIconIndex` rather than a book or a page."""
    MarkAsNew: bool
    """Whether the contents show the node as new."""
    NodeCaptionTemplate: str
    """Caption; may hold phrases and variables in %%."""
    PlugInName: str
    """Of an `ntPlugIn` node: the plug-in that generates it."""
    PlugInData: str
    """Of an `ntPlugIn` node: data for the plug-in, kept as it is."""
    DependantOn: lwconfig.DependantOnEnum | int
    """Kind of item that must exist for the node to be generated; 0 for none, -1 where the file had no usable
    value."""
    DependantOnNamespace: str
    """Code element name of these items; follows from `DependantOn` where the file has none."""
    DependantOnNamespace_Filter: str
    """Filter for these items, kept as it is."""
    DependantCount: int
    """The least number of such items. At first `1`."""
    DependantStillProcessChildren: bool
    """Whether the nodes below are generated even when this one is not."""
    FileNameTemplate: str
    """File name of the node's page; may hold variables in %%."""
    PageType: lwconfig.PageTypeEnum | int
    """Of an `ntSmart` node: kind of code element for which it repeats; not saved; -1 where the file had no
    usable value. At first `pgStandard`."""
    PageTypeNamespace: str
    """Of an `ntSmart` node: code element names for which it repeats; follows from `PageType` where the file
    has none."""
    PageTypeNamespaceFilter: str
    """Filter for these elements, kept as it is."""
    LinkToPage: bool
    """Whether the node links to its page. At first True."""
    IsDefaultTopic: bool
    """Whether its page is the default topic of the help file."""
    ParentKey: str
    """The key of the parent node; empty for a root node. When set: does not change the parent until
    `CementReferences` runs."""
    NodeIconIndex: int
    """The icon of the help file that a node with `UseCustomIcon` shows."""
    ParentNodeDef: lwconfig.NodeDef | None
    """The linked parent, or null. When set: links the parent, or null for none, and sets `ParentKey` to its
    key."""
    TOCDefinition: lwconfig.TOCDefinition | None
    """The definition that the node belongs to, or null."""
    PageLayout: lwconfig.PageLayout | None
    """The layout of the node's page in the template of its definition; null where the template has no such
    layout. Error 91 for a node without a definition, or whose definition has no template. When set: refers to
    the layout by its file name; null for none."""
    def ActualIconIndex(self, HasChildren: bool) -> int:
        """The icon index of the node in the help file, collapsed and expanded."""
    def ActualExpandedIconIndex(self, HasChildren: bool) -> int:
        """The icon index of the node in the help file, collapsed and expanded."""
    def CementReferences(self, NodeDefs: lwconfig.NodeDefs | None) -> None:
        """Links the node to the one in `NodeDefs` that its parent key names. Where there is none it becomes a
        root node; a node without a parent key is not changed. Error 91 for a parent key and no `NodeDefs`."""
    def Load(self, e: lwconfig.XMLElement | None, TOCDefinition: lwconfig.TOCDefinition | None) -> None:
        """Reads a `NodeDef` element as a member of the definition. "Key" is required and has a number from
        its second character on; otherwise error 5, 13 or 6 stops the load. Node numbers taken later are
        greater than the key's."""
    def Save(self, e: lwconfig.XMLElement | None) -> None:
        """Names the element `NodeDef` and writes the node to it. Only a linked parent is saved."""
    def Clone(self) -> lwconfig.NodeDef:
        """A copy with the same key, parent and definition. Fails as `PageLayout` does."""

class VariableDefs(Object):
    """The variables of a template, filed under their names."""

    def __init__(self) -> None: ...
    def Item(self, Key: Any) -> lwconfig.VariableDef | None:
        """The item at that position or under that key, or null."""
    def Remove(self, Key: Any) -> None:
        """Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
        out of range."""
    def Add(self, obj: lwconfig.VariableDef | None, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """Inserts the object before the item that `Before` names, else after the one that `After` names, else
        at the end. An empty key is none. Error 457 for a key that is present, 5 or 9 where `Before` or
        `After` names no item, 91 for no object; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def __call__(self, Key: Any) -> lwconfig.VariableDef | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.VariableDef]: ...
    def __reversed__(self) -> Iterator[lwconfig.VariableDef]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.VariableDef: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.VariableDef]: ...

class VariableDef(Object):
    """A variable that a template's pages use and a user can set."""

    def __init__(self) -> None: ...
    Name: str
    """The key in `VariableDefs`."""
    Description: str
    """Description shown to users."""
    VariableDefType: lwconfig.VariableDefTypeEnum | int
    """Kind of value. At first `vdtText`."""
    Caption: str
    """Prompt shown to users."""
    DefaultValue: str
    """Value unless the user sets one, as text; not checked against the type."""
    def Clone(self) -> lwconfig.VariableDef:
        """A copy of all properties."""
    def Load(self, e: lwconfig.XMLElement | None, PageTemplate: lwconfig.PageTemplate | None) -> None:
        """Reads a `VariableDef` element. "Name" and "Description" are required: error 5 stops the load where
        one is missing. An empty caption becomes the name. `PageTemplate` is accepted and not used."""
    def Save(self, e: lwconfig.XMLElement | None) -> None:
        """Names the element `VariableDef` and writes the properties to it."""

class TaggedCommentDefs(Object):
    """Every type of tagged comment, filed under its prefix."""

    def __init__(self) -> None: ...
    DefaultDesignerProgID: str
    """Editor of comments whose definition names none."""
    FileName: _FilePath
    """The file loaded last."""
    IsPopulated: bool
    """Whether a `LoadFrom` has finished."""
    def Item(self, Key: Any) -> lwconfig.TaggedCommentDef | None:
        """The item at that position or under that key, or null."""
    def Remove(self, Key: Any) -> None:
        """Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
        out of range."""
    def Add(self, obj: lwconfig.TaggedCommentDef | None, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """Inserts the object before the item that `Before` names, else after the one that `After` names, else
        at the end. An empty key is none. Error 457 for a key that is present, 5 or 9 where `Before` or
        `After` names no item, 91 for no object; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def Load(self) -> None:
        """Replaces the set by the custom and then the standard definitions of the configuration; by those of
        the older single file where there is no standard file."""
    def Save(self) -> None:
        """Saves the standard and then the custom definitions to their files, then deletes the older single
        file; a failure to delete it is ignored. The first failing save stops it; later files are not touched."""
    def SaveEx(self, IncludeStandard: bool, IncludeCustom: bool) -> None:
        """As `Save` for the chosen files only; the older file is kept."""
    def LoadFrom(self, FileName: PathLike[str] | str) -> None:
        """Adds the definitions of a file at the end, each replacing one with the same prefix. A file that
        does not exist adds nothing. A failing definition stops the load; the definitions before it are kept,
        and `IsPopulated` does not change."""
    def SaveTo(self, FileName: PathLike[str] | str) -> None:
        """Writes all definitions to one file, in the order of the set."""
    def SaveToEx(self, FileName: PathLike[str] | str, IncludeStandard: bool, IncludeCustom: bool) -> None:
        """Writes the standard definitions, the custom ones or both to one file, in the order of the set."""
    def Clone(self) -> lwconfig.TaggedCommentDefs:
        """A set of copies, filed under their prefixes."""
    def ItemFromXMLTagName(self, XMLTagName: str) -> lwconfig.TaggedCommentDef | None:
        """The first definition that lists the XML documentation tag, letter case ignored; null where none
        does. Blanks beside a comma are part of the names."""
    def __call__(self, Key: Any) -> lwconfig.TaggedCommentDef | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.TaggedCommentDef]: ...
    def __reversed__(self) -> Iterator[lwconfig.TaggedCommentDef]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.TaggedCommentDef: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.TaggedCommentDef]: ...

class TaggedCommentDef(Object):
    """One type of tagged comment: its prefix in source code, the elements it belongs to and its editor."""

    def __init__(self) -> None: ...
    TagIdentifier: str
    """Prefix of the comments, such as "##MODULE_DESCRIPTION"; the key in `TaggedCommentDefs`."""
    ElementType: lwconfig.ElementTypeEnum | int
    """Kind of code element that the comment belongs to. At first `etUnspecified`."""
    Description: str
    """Description of the comment."""
    Format: str
    """Kept for other tools."""
    IsGeneral: bool
    """Whether comments of this type become part of the general description."""
    WrapType: lwconfig.WrapTypeEnum | int
    """How several comments of this type on an element are joined; 0: unspecified."""
    DesignerProgID: str
    """Component that edits the comments; empty for the default of the set."""
    DesignFlags: str
    """Editing features that the comment editors provide or deny."""
    Hidden: bool
    """Whether the wizard leaves the type out of its list."""
    LegacyFor: str
    """The `TagIdentifier` of the type that replaces this one."""
    TabName: str
    """Tab of the comment editors that shows the comment."""
    Tip: str
    """Help shown above the space to edit the comment."""
    Flags: str
    """Free text; a load makes an empty one "-"."""
    Standard: bool
    """Whether it is predefined, not made by the user; selects the file for saving. At first True."""
    Namespace: str
    """Code element names, separated by commas."""
    Icon: str
    """Name of the icon. At first `"other"`."""
    GroupName: str
    """Group under which the type is listed."""
    XMLCommentTypes: str
    """Tag names of XML documentation comments, separated by commas."""
    def Load(self, e: lwconfig.XMLElement | None) -> None:
        """Reads a `TaggedComment` element. "Hidden", "Identifier", "ElementType", "Description", "Format",
        "General" and "WrapType" are required: error 5 stops the load where one is missing. Values outside the
        enumerations are kept."""
    def Save(self, e: lwconfig.XMLElement | None) -> None:
        """Writes all stored properties to the element, which the caller has named."""
    def Clone(self) -> lwconfig.TaggedCommentDef:
        """A copy of all properties."""

class ModelCommentProfiles(Object):
    """Every model comment profile of the configuration, filed under its name, each in its own file."""

    def __init__(self) -> None: ...
    Dirty: bool
    """Whether something was added or removed since the profiles were loaded or saved."""
    def Item(self, Key: Any) -> lwconfig.ModelComments | None:
        """The item at that position or under that key, or null."""
    def Remove(self, Key: Any) -> None:
        """As of every collection; then the profiles are dirty.

        Every collection: removes the item at that position or under that key. Error 5 for an unknown key, 9
        for a position out of range."""
    def Add(self, obj: lwconfig.ModelComments | None, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """As of every collection; then the profiles are dirty.

        Every collection: inserts the object before the item that `Before` names, else after the one that
        `After` names, else at the end. An empty key is none. Error 457 for a key that is present, 5 or 9
        where `Before` or `After` names no item, 91 for no object; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def Load(self) -> None:
        """Adds the profile of every "*.xml" file in the "modelcomments" folder of the configuration; none
        where the folder does not exist. A failing profile, or two of one name (error 457), stop the load; the
        profiles before it are kept, and `Dirty` does not change."""
    def Save(self) -> None:
        """Writes every profile to the file of its name in that folder, created when missing; other files
        there are kept. The first failure stops the save: the files before it have been written. Error 52 for
        a profile without a name, with a name that would lead out of the folder, or with one that begins with
        a dot, which would hide its file."""
    def Clone(self) -> lwconfig.ModelCommentProfiles:
        """A collection of copies, dirty unless it is empty."""
    def __call__(self, Key: Any) -> lwconfig.ModelComments | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.ModelComments]: ...
    def __reversed__(self) -> Iterator[lwconfig.ModelComments]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.ModelComments: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.ModelComments]: ...

class ModelComments(Object):
    """A model comment profile: model comments in order, without keys, for one namespace profile."""

    def __init__(self) -> None: ...
    NamespaceProfile: str
    """The namespace profile whose element names the comments use."""
    FileName: _FilePath
    """The file that `LoadFromFile` read last."""
    Name: str
    """The key in `ModelCommentProfiles`."""
    Description: str
    """Description of the set."""
    IsPopulated: bool
    """Whether a `LoadFromFile` has finished."""
    Dirty: bool
    """Whether the set has changed since it was loaded or saved. Set by the callers: no change of the set or
    of a comment sets it."""
    @property
    def NamespaceDefs(self) -> lwconfig.NamespaceDefs | None:
        """The shared namespace profile that `NamespaceProfile` names; null where it is unknown. Error 91
        while the shared namespace profiles have not been requested."""
    def Item(self, Key: Any) -> lwconfig.ModelComment | None:
        """The item at that position or under that key, or null."""
    def Remove(self, Key: Any) -> None:
        """Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
        out of range."""
    def Add(self, obj: lwconfig.ModelComment | None, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """Inserts the object before the item that `Before` names, else after the one that `After` names, else
        at the end. An empty key is none. Error 457 for a key that is present, 5 or 9 where `Before` or
        `After` names no item, 91 for no object; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def Save(self, e: lwconfig.XMLElement | None) -> None:
        """Names the element `ModelCommentProfile` and writes the set with its comments to it."""
    def Load(self, e: lwconfig.XMLElement | None) -> None:
        """Replaces the comments by those of a `ModelCommentProfile` element, with its name and description,
        which are required: error 5 stops the load. So does a failing comment; the comments before it are
        kept."""
    def Clone(self) -> lwconfig.ModelComments:
        """A set of copies. Only namespace profile, name and description are copied."""
    def LoadGlobal(self) -> None:
        """From and to the file `modelcomments.xml` of the configuration."""
    def SaveToGlobal(self) -> None:
        """From and to the file `modelcomments.xml` of the configuration."""
    def LoadFromFile(self, FileName: PathLike[str] | str) -> None:
        """Replaces the set by that of a file; then it is populated and not dirty, without an event. A missing
        or malformed file has no "Name" and fails as `Load` does."""
    def SaveToFile(self, FileName: PathLike[str] | str) -> None:
        """Writes the set to a file and clears `Dirty`. `FileName` does not change."""
    def on(self, event: Literal["DirtyStateChanged"], callback: Callable[[], object], /) -> lwconfig.Connection:
        """Calls the callback at every event of that name, as long as the connection lives and is not closed.

        `DirtyStateChanged`: Raised after setting `Dirty` has changed its value."""
    def __call__(self, Key: Any) -> lwconfig.ModelComment | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.ModelComment]: ...
    def __reversed__(self) -> Iterator[lwconfig.ModelComment]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.ModelComment: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.ModelComment]: ...

class ModelComment(Object):
    """A description reused for every member of a kind and name, in any project."""

    def __init__(self) -> None: ...
    MemberType_Namespace: str
    """Code element names, such as "LW:Method"."""
    MemberName: str
    """Name of the members; may hold the wildcards ? and *."""
    TaggedCommentPrefix: str
    """The `TagIdentifier` of the comment that the text fills."""
    TaggedCommentText: str
    """The text of the comment."""
    Tag: Any
    """Free for the caller; neither saved nor copied."""
    OnlyIfBlank: bool
    """Whether only members without such a comment get it."""
    InsertionPoint: lwconfig.mcInsertionPointEnum | int
    """Position of the text in an existing comment. At first `ctPrefix`."""
    MemberType: lwconfig.mcMemberTypeEnum | int
    """The member kind set last, as of `mcMemberTypeEnum`; any number is kept. When set: also sets
    `MemberType_Namespace`, where the kind is of the enumeration."""
    def Save(self, e: lwconfig.XMLElement | None) -> None:
        """Names the element `MC` and writes the comment to it. `MemberType` and `Tag` are not saved."""
    def Load(self, e: lwconfig.XMLElement | None) -> None:
        """Reads an `MC` element, also the older form with a "MemberType". A missing kind of member,
        "MemberName", "TaggedCommentPrefix" or "TaggedCommentText" is error 5, which stops the load."""
    def Clone(self) -> lwconfig.ModelComment:
        """A copy of all properties but `Tag`."""

class CommentFileLocations(Object):
    """The registered comment files, in order, without keys; an assembly may occur repeatedly."""

    def __init__(self) -> None: ...
    Dirty: bool
    """Set by the callers; a load and a save clear it."""
    def Item(self, Key: Any) -> lwconfig.CommentFileLocation | None:
        """The item at that position or under that key, or null."""
    def Remove(self, Key: Any) -> None:
        """Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
        out of range."""
    def Add(self, Item: lwconfig.CommentFileLocation | None, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """Inserts the object before the item that `Before` names, else after the one that `After` names, else
        at the end. An empty key is none. Error 457 for a key that is present, 5 or 9 where `Before` or
        `After` names no item, 91 for no object; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def Load(self) -> None:
        """Replaces the list by that of the file `CommentFileLocations.xml` of the configuration; empty where
        there is no such file. A failing location stops the load; the locations before it are kept, and
        `Dirty` is not cleared."""
    def Save(self) -> None:
        """Writes the list to that file and clears `Dirty`."""
    def Clone(self) -> lwconfig.CommentFileLocations:
        """A list of copies, not dirty."""
    def __call__(self, Key: Any) -> lwconfig.CommentFileLocation | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.CommentFileLocation]: ...
    def __reversed__(self) -> Iterator[lwconfig.CommentFileLocation]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.CommentFileLocation: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.CommentFileLocation]: ...

class CommentFileLocation(Object):
    """The location of the XML comment file of one .NET assembly."""

    def __init__(self) -> None: ...
    AssemblyFileName: _FilePath
    """The assembly that the comment file belongs to."""
    CommentFilePath: _FilePath
    """The path of the comment file, each "%NetPath%" in it, in any letter case, replaced by the .NET
    Framework folder of this machine, which ends with a backslash."""
    @property
    def InternalCommentFilePath(self) -> str:
        """The path as set."""
    def Load(self, e: lwconfig.XMLElement | None) -> None:
        """Reads a `CommentFile` element. Both attributes are required: error 5 stops the load."""
    def Save(self, e: lwconfig.XMLElement | None) -> None:
        """Writes all stored properties to the element, which the caller has named."""
    def Clone(self) -> lwconfig.CommentFileLocation:
        """A copy, with the path as set."""

class Languages(Object):
    """The languages, filed under their names."""

    def __init__(self) -> None: ...
    def Item(self, Key: Any) -> lwconfig.Language | None:
        """The language under that key or at that position; the first language where there is no such item.
        Error 5 for a key, 9 for a position, while there are no languages."""
    def Remove(self, Key: Any) -> None:
        """Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
        out of range."""
    def Add(self, Item: lwconfig.Language | None, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """Inserts the object before the item that `Before` names, else after the one that `After` names, else
        at the end. An empty key is none. Error 457 for a key that is present, 5 or 9 where `Before` or
        `After` names no item, 91 for no object; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def Load(self, e: lwconfig.XMLElement | None) -> None:
        """Replaces the languages by the `Language` children of the element. A failing language, or two of one
        name (error 457), stop the load; the languages before it are kept."""
    def __call__(self, Key: Any) -> lwconfig.Language | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.Language]: ...
    def __reversed__(self) -> Iterator[lwconfig.Language]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.Language: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.Language]: ...

class Language(Object):
    """The notation of declarations in one programming language."""

    def __init__(self) -> None: ...
    Name: str
    """The key in `Languages`."""
    Caption: str
    """The display name."""
    IncludeFlag: bool
    """For the generator's use while it runs; never loaded."""
    OverloadsWord: str
    """Keyword of an overloading member."""
    OverridesWord: str
    """Keyword of an overriding member."""
    VirtualWord: str
    """Keyword of a member that may be overridden."""
    NotVirtualWord: str
    """Keyword of a member that may not be overridden."""
    AbstractWord: str
    """Keyword of a member without an implementation."""
    ShadowsWord: str
    """Keyword of a member that hides an inherited one."""
    StaticWord: str
    """Keyword of a member of the type rather than the instance."""
    OptionalWord: str
    """Keyword of an optional parameter."""
    OutParamWord: str
    """Keyword of an output parameter."""
    ByRefWord: str
    """Keyword of a parameter passed by reference."""
    ByValWord: str
    """Keyword of a parameter passed by value."""
    ReturnTypePrefix: str
    """Text before a return type."""
    ArraySymbol: str
    """Symbol after an array type."""
    VoidTypeName: str
    """Name of the empty return type."""
    ParamArrayWord: str
    """Keyword of a parameter list of variable length."""
    FunctionWord: str
    """Keyword of a procedure with a result."""
    SubWord: str
    """Keyword of a procedure without a result."""
    ParameterDelimiter: str
    """Text between parameters. At first `","`."""
    IncludeByDefault: bool
    """Whether the language is used unless the user decides otherwise."""
    MustInheritWord: str
    """Keyword of a type that must be derived from."""
    NotInheritableWord: str
    """Keyword of a type that may not be derived from."""
    ReadOnlyPropertyWord: str
    """Keyword of a property to read only."""
    WriteOnlyPropertyWord: str
    """Keyword of a property to write only."""
    ReadWritePropertyWord: str
    """Keyword of a property to read and write."""
    ReadOnlyFieldKeyword: str
    """Keyword of a field to read only."""
    DataTypes: _Owned[lwconfig.Collection]
    """The language's text for each neutral type name, filed under it."""
    ReverseDataTypes: _Owned[lwconfig.Collection]
    """The neutral name of each type, filed under the language's text."""
    AccessTypes: _Owned[lwconfig.Collection]
    """The language's word for each access level, filed under its neutral name."""
    MultiDimensionalArraySymbol: str
    """Symbol after an array type of more than one dimension."""
    def Load(self, e: lwconfig.XMLElement | None) -> None:
        """Reads a `Language` element. All words but `ParameterDelimiter` and `MultiDimensionalArraySymbol`
        are required: error 5 stops the load. So does a data type that cannot be added to either table: error
        457 where its name or text, which may be empty once, is repeated. An access type that cannot be added
        is passed over."""

class NamespaceProfiles(Object):
    """Every namespace profile of the configuration, filed under its name."""

    def __init__(self) -> None: ...
    def Item(self, Key: Any) -> lwconfig.NamespaceDefs | None:
        """The item at that position or under that key, or null."""
    def Remove(self, Key: Any) -> None:
        """Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
        out of range."""
    def Add(self, Item: lwconfig.NamespaceDefs | None, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """Inserts the object before the item that `Before` names, else after the one that `After` names, else
        at the end. An empty key is none. Error 457 for a key that is present, 5 or 9 where `Before` or
        `After` names no item, 91 for no object; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def Load(self) -> None:
        """Adds the profile of every "*.xml" file in the "Namespaces" folder of the configuration. A missing
        folder shows a message box and adds nothing. Two profiles of one name are error 457, which stops the
        load; the profiles before it are kept. A profile without a name has no key."""
    def __call__(self, Key: Any) -> lwconfig.NamespaceDefs | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.NamespaceDefs]: ...
    def __reversed__(self) -> Iterator[lwconfig.NamespaceDefs]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.NamespaceDefs: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.NamespaceDefs]: ...

class NamespaceDefs(Object):
    """A namespace profile, or the nested definitions of one: definitions filed under their names."""

    def __init__(self) -> None: ...
    Name: str
    """The key in `NamespaceProfiles`."""
    Caption: str
    """The display name of the profile."""
    CommenterCaption: str
    """The display name in the comment editors."""
    IsFile: bool
    """Whether its sources are files."""
    Supports: str
    """Item types, joined by ","."""
    ElementDefs: _Owned[lwconfig.ElementDefs]
    """The elements that the profile offers."""
    def Item(self, Key: Any) -> lwconfig.NamespaceDef | None:
        """The item at that position or under that key, or null."""
    def Remove(self, Key: Any) -> None:
        """Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
        out of range."""
    def Add(self, Item: lwconfig.NamespaceDef | None, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """As of every collection, but failures are ignored: where the key is present nothing is added.

        Every collection: inserts the object before the item that `Before` names, else after the one that
        `After` names, else at the end. An empty key is none. Error 457 for a key that is present, 5 or 9
        where `Before` or `After` names no item, 91 for no object; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def Load(self, e: lwconfig.XMLElement | None) -> None:
        """Reads a profile from its root element. A failing definition, or two top-level ones of one name
        (error 457), stop the load; everything read before is kept."""
    def ResetIncludeFlags(self) -> None:
        """Resets the include flag of every definition, at any depth."""
    def GetNamespaceDefsByCaption(self, Caption: str, col: lwconfig.NamespaceDefs | None = ...) -> lwconfig.NamespaceDefs:
        """The definitions at any depth with that caption, or name, without regard to letter case, each before
        those nested in it. They are appended to `col` without keys, and `col` is returned; a new collection
        where it is null."""
    def GetNamespaceDefsByName(self, Name: str, col: lwconfig.NamespaceDefs | None = ...) -> lwconfig.NamespaceDefs:
        """The definitions at any depth with that caption, or name, without regard to letter case, each before
        those nested in it. They are appended to `col` without keys, and `col` is returned; a new collection
        where it is null."""
    def AllNamespaceDefs(self, col: lwconfig.NamespaceDefs | None = ...) -> lwconfig.NamespaceDefs:
        """The definitions at any depth, filed under their names in `col`, or a new collection where it is
        null; of several with one name the first, each before those nested in it."""
    def __call__(self, Key: Any) -> lwconfig.NamespaceDef | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.NamespaceDef]: ...
    def __reversed__(self) -> Iterator[lwconfig.NamespaceDef]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.NamespaceDef: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.NamespaceDef]: ...

class NamespaceDef(Object):
    """One kind of code element that can be documented, with the kinds nested below it, to any depth."""

    def __init__(self) -> None: ...
    Name: str
    """Name of the kind, such as "LW:Module"; the key among its siblings."""
    Handler: str
    """Kept for the plug-in that offers the elements."""
    Caption: str
    """The display name of an element of this kind."""
    CommenterCaption: str
    """The display name in the comment editors."""
    CaptionPlural: str
    """The display name of several elements of this kind."""
    ProvideIncludeFlag: bool
    """Whether users may include or leave out such elements."""
    DefaultIncludeFlag: bool
    """The value that `ResetIncludeFlag` sets."""
    Tree_AlwaysPopulate: bool
    """In the item tree: fill the node at once."""
    Tree_AlwaysExpand: bool
    """In the item tree: open the node at once."""
    Tree_Icon: str
    """In the item tree: name of the icon."""
    Tree_ShowInSelect: bool
    """In the item tree: shown while users select."""
    Tree_AllowExclude: bool
    """In the item tree: users may leave an item out. At first True."""
    Tree_CaptionTemplate: str
    """In the item tree: caption of an item."""
    Tree_Select_AlwaysPopulate: bool
    """In the item tree: fill the node at once while users select."""
    Tree_ShowFolder: bool
    """In the item tree: items are below a folder."""
    Tree_ShowFolderInSelect: bool
    """In the item tree: items are below a folder while users select."""
    FileNameFormat: str
    """File name of the pages of such elements."""
    Flags: str
    """Free text."""
    ID: str
    """Free text."""
    Counter: int
    """For the generator's use while it runs."""
    IncludeFlag: bool
    """For the generator's use while it runs."""
    Tag: Any
    """Withdrawn: error 13 with the source "Tag no longer supported"."""
    NamespaceDefs: lwconfig.NamespaceDefs | None
    """The profile that the definition belongs to, or null. When set: the profile is not kept alive."""
    ChildNamespaceDefs: _Owned[lwconfig.NamespaceDefs]
    """The nested definitions, filed under their names; created empty when there are none. Never null."""
    def Load(self, e: lwconfig.XMLElement | None) -> None:
        """Reads a definition element and every element nested in it. "Name", "Handler" and "Caption" are
        required: error 5 stops the load where one is missing, and the definitions complete before it are
        kept. Of nested siblings with one name the first is kept."""
    def ResetIncludeFlag(self) -> None:
        """Sets `IncludeFlag` to `DefaultIncludeFlag`, here and in every nested definition."""
    def ResetCounters(self) -> None:
        """Sets `Counter` to 0, here and in every nested definition."""

class ElementDefs(Object):
    """The elements of a namespace profile, in file order, without keys."""

    def __init__(self) -> None: ...
    def Item(self, Key: Any) -> lwconfig.ElementDef | None:
        """The item at that position or under that key, or null."""
    def Remove(self, Key: Any) -> None:
        """Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
        out of range."""
    def Add(self, Item: lwconfig.ElementDef | None, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """Inserts the object before the item that `Before` names, else after the one that `After` names, else
        at the end. An empty key is none. Error 457 for a key that is present, 5 or 9 where `Before` or
        `After` names no item, 91 for no object; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def Load(self, e: lwconfig.XMLElement | None, NamespaceProfile: lwconfig.NamespaceDefs | None) -> None:
        """Reads an `lwelements` element of the profile. Common attributes apply to the elements that follow
        them. A failure stops the load, and the elements before it are kept."""
    def __call__(self, Key: Any) -> lwconfig.ElementDef | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.ElementDef]: ...
    def __reversed__(self) -> Iterator[lwconfig.ElementDef]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.ElementDef: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.ElementDef]: ...

class ElementDef(Object):
    """One element that a namespace profile offers."""

    def __init__(self) -> None: ...
    Name: str
    """The name of the element."""
    Description: str
    """Description of the element."""
    Category: str
    """The category under which it is offered."""
    DesignerProgID: str
    """Component that edits it."""
    Namespaces: str
    """Code element names."""
    ScrapsOnly: bool
    """Whether it is allowed in scraps only."""
    ElementAttributeDefs: _Owned[lwconfig.ElementAttributeDefs]
    """The attributes that it takes, filed under their names."""
    NamespaceProfile: lwconfig.NamespaceDefs | None
    """The profile that the element belongs to, or null. When set: the profile is not kept alive."""
    def Load(self, e: lwconfig.XMLElement | None, Parent: lwconfig.NamespaceDefs | None, CommonAttributes: lwconfig.ElementAttributeDefs | None) -> None:
        """Reads an `lwelement` element of the profile `Parent`, then adds copies of those common attributes
        that the element does not define itself; null adds none. "Name" is required (error 5); a repeated
        attribute is error 457. Either stops the load, and the attributes before it are kept."""

class ElementAttributeDefs(Object):
    """The attributes of an element, filed under their names."""

    def __init__(self) -> None: ...
    def Item(self, Key: Any) -> lwconfig.ElementAttributeDef | None:
        """The item at that position or under that key, or null."""
    def Remove(self, Key: Any) -> None:
        """Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
        out of range."""
    def Add(self, Item: lwconfig.ElementAttributeDef | None, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """Inserts the object before the item that `Before` names, else after the one that `After` names, else
        at the end. An empty key is none. Error 457 for a key that is present, 5 or 9 where `Before` or
        `After` names no item, 91 for no object; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def __call__(self, Key: Any) -> lwconfig.ElementAttributeDef | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.ElementAttributeDef]: ...
    def __reversed__(self) -> Iterator[lwconfig.ElementAttributeDef]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.ElementAttributeDef: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.ElementAttributeDef]: ...

class ElementAttributeDef(Object):
    """One attribute that an element takes."""

    def __init__(self) -> None: ...
    Name: str
    """The key in `ElementAttributeDefs`."""
    Description: str
    """Description of the attribute."""
    HelpTopic: str
    """Page that describes the attribute."""
    EditType: str
    """How its value is edited."""
    ListSource: str
    """Source of a list of values."""
    ListValues: str
    """The values to choose from."""
    DefaultValue: str
    """Value where none is given."""
    Mandatory: bool
    """Whether it must be given."""
    ElementDef: lwconfig.ElementDef | None
    """The element that the attribute belongs to, or null for a common attribute of all elements. When set:
    the element is not kept alive."""
    def Load(self, e: lwconfig.XMLElement | None) -> None:
        """Reads an `attribute` element. "Name" and "Description" are required: error 5 stops the load."""
    def Clone(self, ElementDef: lwconfig.ElementDef | None) -> Any:
        """A copy that belongs to the given element."""

class ElementAttributes(Object):
    """Splits one line of text, an attribute list or a command line, into names and values."""

    def __init__(self) -> None: ...
    def Parse(self, CommandLine: str | None = ...) -> int:
        """Replaces the attributes by those of the text, or of the arguments of this process where it is
        empty; keeps them where those are empty too. Returns the new `Count`. More than 32,767 attributes are
        error 6, and the old ones are kept.

        A text with "=" is split at blanks. An attribute is `name=value`, or a text that is both name and
        value; a name loses one leading "-" or "/". Blanks inside double quotes do not split, and an unclosed
        quote extends to the end; three quotes in a row are one quote, which only a name keeps. Every blank
        terminates an attribute, so that two in a row enclose an empty one, and the end of the text adds an
        empty one. A text without "=" is one attribute, blanks included."""
    def AttributeName(self, Index: Any) -> str:
        """The name, or the value, of one attribute; empty where `Index` names none. A number other than 0,
        also as a text, is a position from 1. Any other text, and the number 0 as the text "0", is a name,
        letter case ignored, and the first attribute of that name counts. A text that only begins with a
        number other than 0 names none."""
    def AttributeData(self, Index: Any) -> str:
        """The name, or the value, of one attribute; empty where `Index` names none. A number other than 0,
        also as a text, is a position from 1. Any other text, and the number 0 as the text "0", is a name,
        letter case ignored, and the first attribute of that name counts. A text that only begins with a
        number other than 0 names none."""
    @property
    def Count(self) -> int:
        """The number of attributes."""

class INamespaceProvider(Object):
    """The interface of a provider of documentable items: it handles one kind of source, described by a
    namespace profile, finds its items and takes part in generation. A source is named by a moniker, a text
    that only the provider understands. Arguments that are references to objects or to a changeable string may
    be replaced.

    This class itself does nothing and returns nothing: null, empty or false."""

    def __init__(self) -> None: ...
    def GetItems(self, NamespaceDef: lwconfig.NamespaceDef | None, ParentItem: Any, Filter: str = ...) -> Any:
        """The items of the kind `NamespaceDef` below `ParentItem`, narrowed by `Filter` where it is not
        empty."""
    DocumentDataProvider: Any
    """The provider's data for the generator."""
    def Initialise(self, LWProject: Any) -> None:
        """Passes the generator's project to the provider."""
    def GetRootItem(self, NamespaceDef: lwconfig.NamespaceDef | None, Moniker: str) -> Any:
        """The root item named by the moniker."""
    def GetObjectFromQualifiedName(self, QualifiedName: str) -> Any:
        """The item with that fully qualified name."""
    def GetNamespaceDefFromObject(self, NamespaceDefs: lwconfig.NamespaceDefs | None, obj: Any) -> Any:
        """The definition of the profile that describes `obj`."""
    def AddRootItem(self, RootItem: Any) -> None:
        """Adds a root item to the provider's own."""
    def StreamContent(self, OutputFile: Any, ContentType: str) -> None:
        """Writes content of the type to an output file."""
    Name: Any
    """The provider's name."""
    def ContentCreated(self, Item: Any, NamespaceDef: lwconfig.NamespaceDef | None, FileName: str, CoreContent: bool) -> None:
        """Reports that the file was created for the item, and whether it is core content."""
    def BeforeProcessRootItem(self, RootItem: Any) -> None:
        """Reports that a root item is about to be processed."""
    def AfterProcessRootItem(self, RootItem: Any) -> None:
        """Reports that a root item has been processed."""
    def BeforeProcessItem(self, Item: Any, RootItem: Any) -> None:
        """Reports that an item is about to be processed."""
    def AfterProcessItem(self, Item: Any, RootItem: Any) -> None:
        """Reports that an item has been processed."""
    def GetModuleItems(self) -> Any:
        """The provider's module items."""
    def BrowseForMoniker(self, Flags: str) -> str:
        """Lets the user pick a source and returns its moniker."""
    def VerifyMoniker(self, Moniker: str, Message: str) -> tuple[bool, str]:
        """Whether the moniker names a usable source; if not, `Message` is set to the reason."""
    def GetMonikerFromRootItem(self, RootItem: Any) -> str:
        """The moniker of a root item."""
    def MakeMonikerRelative(self, Moniker: str, RelativeToFileName: str) -> Any:
        """The moniker relative to the file."""
    def MakeMonikerAbsolute(self, Moniker: str, RelativeToFileName: str) -> Any:
        """The inverse of `MakeMonikerRelative`."""

class PlugIns(Object):
    """Plug-ins, filed under their keys; the same name may occur several times."""

    def __init__(self) -> None: ...
    def Item(self, Key: Any) -> lwconfig.PlugIn | None:
        """The item at that position or under that key, or null."""
    def Remove(self, Key: Any) -> None:
        """Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
        out of range."""
    def Add(self, obj: lwconfig.PlugIn | None, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """Inserts the object before the item that `Before` names, else after the one that `After` names, else
        at the end. An empty key is none. Error 457 for a key that is present, 5 or 9 where `Before` or
        `After` names no item, 91 for no object; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def Load(self) -> None:
        """Replaces the list by the plug-ins of every file in the "PlugIns" folder of the configuration."""
    def LoadFrom(self, Folder: PathLike[str] | str) -> None:
        """Replaces the list by the plug-ins of every "*.xml" file in the folder; none where the folder does
        not exist. A failing element stops the load, and the plug-ins before it are kept."""
    def Clone(self) -> lwconfig.PlugIns:
        """A list of copies, each filed under its own key."""
    def __call__(self, Key: Any) -> lwconfig.PlugIn | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.PlugIn]: ...
    def __reversed__(self) -> Iterator[lwconfig.PlugIn]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.PlugIn: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.PlugIn]: ...

class PlugIn(Object):
    """A plug-in of the generator: for wizard, content and tables of contents, whether it takes part and which
    component serves it."""

    def __init__(self) -> None: ...
    Name: str
    """The name by which templates enable it."""
    Description: str
    """Description of the plug-in."""
    ExtendsWizard: bool
    """Whether it takes part in the wizard."""
    WizardProgID: str
    """Component that serves the wizard."""
    ExtendsContent: bool
    """Whether it takes part in the content of pages."""
    ContentProgID: str
    """Component that serves the content."""
    ExtendsTableOfContents: bool
    """Whether it takes part in tables of contents."""
    TableOfContentsProgID: str
    """Component that serves tables of contents."""
    Key: str
    """"P" and the next plug-in number of the process: identifies the object, not the plug-in. Neither read
    nor written. A copy has its own key."""
    def Load(self, e: lwconfig.XMLElement | None) -> None:
        """Reads a `PlugIn` element. All eight attributes are required: error 5 stops the load where one is
        missing."""
    def Save(self, e: lwconfig.XMLElement | None) -> None:
        """Writes all stored properties to the element, which the caller has named."""
    def Clone(self) -> lwconfig.PlugIn:
        """A copy with its own key."""

class ExternalDocs(Object):
    """The sources of external documentation, filed under their name patterns, and the links to their pages.
    The first source in order whose pattern covers a name is used. The namespace of a full name is the part
    before its last ".", its short name the part after it."""

    def __init__(self) -> None: ...
    Dirty: bool
    """For the caller's use; cleared by a successful `Load` or `Save`."""
    def Item(self, Key: Any) -> lwconfig.ExternalDoc | None:
        """The item at that position or under that key, or null."""
    def Remove(self, Key: Any) -> None:
        """Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
        out of range."""
    def Add(self, Item: lwconfig.ExternalDoc | None, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """Inserts the object before the item that `Before` names, else after the one that `After` names, else
        at the end. An empty key is none. Error 457 for a key that is present, 5 or 9 where `Before` or
        `After` names no item, 91 for no object; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def Load(self) -> None:
        """Adds the sources of `ExternalDocs.xml` in the configuration folder, if there is such a file, in any
        letter case. A source without a name pattern (error 5) or with one that is present (error 457) stops
        the load, and the sources before it are kept."""
    def Save(self) -> None:
        """Writes all sources to `ExternalDocs.xml` in the configuration folder, in the letter case of the
        existing file. When that fails, the old file is kept whole."""
    def Link(self, ObjectFullName: str, Caption: str, IsHelp2: bool, AdditionalKey: str | None = ...) -> str:
        """The link to the page of a class or other object; empty where no source covers its namespace, to
        which "." is appended when it has none. Answers are cached until `ResetLinkCache` by object, caption
        and additional key without regard to letter case; `IsHelp2` and changes of the sources do not affect
        cached answers."""
    def IsLinkAvailable(self, ClassFullName: str) -> bool:
        """Whether a source covers the namespace of the class. A positive answer is cached until
        `ResetLinkCache`; one from a pattern that is a single blank is cached as false."""
    def MemberLink(self, ClassFullName: str, MemberName: str, Caption: str, IsHelp2: bool) -> str:
        """The link to the page of a class member, up to its first "("; empty where no source covers the
        namespace of the class."""
    def URL(self, ObjectFullName: str) -> str:
        """The address of the page of an object, without markup; empty where no source covers its whole name."""
    def Clone(self) -> lwconfig.ExternalDocs:
        """A copy with its own sources, without keys and cached answers."""
    def ResetLinkCache(self) -> None:
        """Clears the cached answers of `Link` and `IsLinkAvailable`."""
    def __call__(self, Key: Any) -> lwconfig.ExternalDoc | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.ExternalDoc]: ...
    def __reversed__(self) -> Iterator[lwconfig.ExternalDoc]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.ExternalDoc: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.ExternalDoc]: ...

class ExternalDoc(Object):
    """One source of external documentation: the names it documents and the formats of links to its pages."""

    def __init__(self) -> None: ...
    NamespaceName: str
    """Pattern of the names documented, with letter case: "?" is any one character, "*" any run of them, "#" a
    digit, "[a-z]" one of a list, "[!a-z]" one that is not. The key in `ExternalDocs`."""
    ClassLink: _Owned[lwconfig.ExternalLink]
    """Formats of links to classes and other objects."""
    DefaultMemberLink: _Owned[lwconfig.ExternalLink]
    """Formats of links to their members."""
    URLFormat: str
    """The formats of `ClassLink`. Error 91 while that is null."""
    HTMLHelp1LinkFormat: str
    """The formats of `ClassLink`. Error 91 while that is null."""
    Help2LinkFormat: str
    """The formats of `ClassLink`. Error 91 while that is null."""
    def Load(self, e: lwconfig.XMLElement | None) -> None:
        """Reads an `ExternalDoc` element. "Namespace" is required: error 5 stops the load where it is
        missing. The first child element, whatever its name, holds the default member link."""
    def Save(self, e: lwconfig.XMLElement | None) -> None:
        """Writes all stored properties to the element, which the caller has named."""
    def Clone(self) -> lwconfig.ExternalDoc:
        """A copy with its own links."""

class ExternalLink(Object):
    """The formats of a link into external documentation, with placeholders in %%. An empty format is none."""

    def __init__(self) -> None: ...
    HTMLHelp1LinkFormat: str
    """Complete markup of a link in HTML Help 1."""
    Help2LinkFormat: str
    """Complete markup of a link in Help 2."""
    URLFormat: str
    """Address of the page, without markup."""
    def Load(self, e: lwconfig.XMLElement | None) -> None:
        """Reads the formats from an element of any name; an absent format keeps its value."""
    def Save(self, e: lwconfig.XMLElement | None) -> None:
        """Writes all stored properties to the element, which the caller has named."""
    def Clone(self, Target: lwconfig.ExternalLink | None) -> None:
        """Copies the formats into `Target`. Error 91 where it is null."""

class VSNETOptions(Object):
    """The user's options of the commenting add-in for Visual Studio .NET."""

    def __init__(self) -> None: ...
    FullPageEditExcludedLanguages: str
    """Languages that are not edited on a full page, joined by ","; the default is all languages of the
    configuration that are not included by default."""
    ToolbarStyle: lwconfig.LWToolBarStyleEnum | int
    """The application value `ToolbarStyle` of the section `VSNET`. At first `ToolbarStyleOffice2003NoThemes`."""
    CodeViewCollapsed: bool
    """The application value `CodeViewCollapsed` of the section `VSNET`. At first False."""
    CommentEditorView: lwconfig.CommentEditorViewEnum | int
    """The application value `CommentEditorView` of the section `VSNET`. At first `CommentEditViewCombo`."""
    CommentWindowStyle: lwconfig.LWVSWindowStyleEnum | int
    """The application value `CommentWindowStyle` of the section `VSNET`. At first
    `LWVSWindowStyleDocumentWindow`."""
    AppendUnTagged: bool
    """The application value `AppendUnTagged` of the section `VSNET`. At first False."""
    WrapCharacters: int
    """The application value `WrapCharacters` of the section `VSNET`. At first `90`."""
    BlockTagPosition: lwconfig.BlockPositionEnum | int
    """The application value `BlockTagPosition` of the section `VSNET`. At first `BlockPositionOutside`."""
    IncludeSpace: bool
    """The application value `IncludeSpace` of the section `VSNET`. At first True."""
    PreviewTemplate: str
    """The application value `PreviewTemplate` of the section `VSNET`. At first `"Microsoft .NET Framework SDK
    Style"`."""
    VBNETCommentMode: lwconfig.CommentModeEnum | int
    """The application value `VBNETCommentMode` of the section `VSNET`. At first `ModeDocComments`."""
    FollowCodePane: bool
    """The application value `FollowCodePane` of the section `VSNET`. At first False."""
    Grouped: bool
    """The application value `Grouped` of the section `VSNET`. At first True."""
    ShowProtected: bool
    """The application value `ShowProtected` of the section `VSNET`. At first False."""
    ShowFriend: bool
    """The application value `ShowFriend` of the section `VSNET`. At first False."""
    ShowPrivate: bool
    """The application value `ShowPrivate` of the section `VSNET`. At first False."""
    XMLCommentLineBreak: int
    """The application value `XMLCommentLineBreak` of the section `VSNET`. At first `66`."""
    AutoExpand: bool
    """The application value `AutoExpand` of the section `VSNET`. At first True."""

class VBOptions(Object):
    """The user's options of the commenting add-in for Visual Basic 6, with some for VBA editors."""

    def __init__(self) -> None: ...
    ToolbarStyle: lwconfig.LWToolBarStyleEnum | int
    """The application value `ToolbarStyle` of the section `VB`. At first `ToolbarStyleOffice2003NoThemes`."""
    CodeViewCollapsed: bool
    """The application value `CodeViewCollapsed` of the section `VB`. At first False."""
    CommentEditorView: lwconfig.CommentEditorViewEnum | int
    """The application value `CommentEditorView` of the section `VB`. At first `CommentEditViewCombo`."""
    SaveAsRelatedDocument: bool
    """The application value `SaveAsRelatedDocument` of the section `VB`. At first True."""
    MaxContinuedLines: int
    """The application value `MaxContinuedLines` of the section `VB`. At first `24`."""
    WrapWhitespace: int
    """The application value `WrapWhitespace` of the section `VB`. At first `10`."""
    WrapCharacters: int
    """The application value `WrapCharacters` of the section `VB`. At first `90`."""
    BlockTagPosition: lwconfig.BlockPositionEnum | int
    """The application value `BlockTagPosition` of the section `VB`. At first `BlockPositionOutside`."""
    IncludeSpace: bool
    """The application value `IncludeSpace` of the section `VB`. At first True."""
    PreviewTemplate: str
    """The application value `PreviewTemplate` of the section `VB`. At first `"Platform SDK style"`."""
    VBAPreviewTemplate: str
    """The application value `VBAPreviewTemplate` of the section `VBA`. At first `"VB Technical
    Documentation"`."""
    VBCommentMode: lwconfig.CommentModeEnum | int
    """Written like every option and never read: the value is always `ModeVBCode`. The application value
    `VBCommentMode` of the section `VB`. At first `ModeVBCode`."""
    ExternalWindow: bool
    """The application value `ExternalWindow` of the section `VB`. At first False."""
    FollowCodePane: bool
    """The application value `FollowCodePane` of the section `VB`. At first False."""
    Grouped: bool
    """The application value `Grouped` of the section `VB`. At first True."""
    VBAShowFriend: bool
    """The application value `ShowFriend` of the section `VBA`. At first True."""
    VBAShowPrivate: bool
    """The application value `ShowPrivate` of the section `VBA`. At first True."""
    ShowFriend: bool
    """The application value `ShowFriend` of the section `VB`. At first False."""
    ShowPrivate: bool
    """The application value `ShowPrivate` of the section `VB`. At first False."""
    XMLCommentLineBreak: int
    """The application value `XMLCommentLineBreak` of the section `VB`. At first `66`."""

class LWCommenterOptions(Object):
    """The user's options of the Lexiwend Commenter."""

    def __init__(self) -> None: ...
    Grouped: bool
    """The application value `Grouped` of the section `LWCommenter`. At first True."""
    ShowProtected: bool
    """The application value `ShowProtected` of the section `LWCommenter`. At first False."""
    ShowFriend: bool
    """The application value `ShowFriend` of the section `LWCommenter`. At first False."""
    ShowPrivate: bool
    """The application value `ShowPrivate` of the section `LWCommenter`. At first False."""
    AutoExpand: bool
    """The application value `AutoExpand` of the section `LWCommenter`. At first True."""
    PreviewTemplate: str
    """The application value `PreviewTemplate` of the section `LWCommenter`. At first empty."""

class IDEOptions(Object):
    """The user's options of the product's own environment."""

    def __init__(self) -> None: ...
    PreserveChosenContentType: bool
    """The application value `PreserveChosenContentType`. At first True."""
    NoProjectPropertiesHeaders: bool
    """The application value `NoProjectPropertiesHeaders`. At first True."""
    ToolbarStyle: lwconfig.LWToolBarStyleEnum | int
    """The application value `ToolbarStyle`. At first `ToolbarStyleOffice2003`."""
    DefaultPath: _FilePath
    """Where nothing is stored, the documents folder of the user. The application value `DefaultPath`."""
    CommentEditorView: lwconfig.CommentEditorViewEnum | int
    """Where nothing is stored, the full view on a display wider than 1024 pixels. The application value
    `CommentEditorView`."""
    AutoSave: bool
    """The application value `AutoSave`. At first False."""
    AutoSaveInterval: int
    """The application value `AutoSaveInterval`. At first `3`."""
    SaveLayoutOnExit: bool
    """The application value `SaveLayoutOnExit`. At first True."""
    InternalHelp: bool
    """The application value `InternalHelp` of the section `IDE`. At first True."""

class SpellingOptions(Object):
    """The user's options of the spelling checker."""

    def __init__(self) -> None: ...
    DynamicSpell: bool
    """The application value `DynamicSpell`. At first True."""
    CustomDictionary: _FilePath
    """Where nothing is stored, the file of that purpose in the common folder of the maker's products. The
    application value `CustomDictionary`."""
    PrimaryDictionary: _FilePath
    """Where nothing is stored, the file of that purpose in the common folder of the maker's products. The
    application value `PrimaryDictionary`."""
    IgnoreMixedCase: bool
    """The application value `IgnoreMixedCase` of the section `Spelling`. At first True."""
    IgnoreNumbers: bool
    """The application value `IgnoreNumbers` of the section `Spelling`. At first True."""
    IgnoreUpperCase: bool
    """The application value `IgnoreUpperCase` of the section `Spelling`. At first True."""
    AlwaysSuggest: bool
    """The application value `AlwaysSuggest` of the section `Spelling`. At first True."""

class CommonEnums(Object):
    """Without members: publishes the enumerations that the product's tools share."""

    def __init__(self) -> None: ...

class Collection(Object):
    """The plain keyed collection of strings."""

    def __init__(self) -> None: ...
    def Item(self, Key: Any) -> str | None:
        """The string at that position or under that key, or null. A reference lasts until the collection
        changes."""
    def Remove(self, Key: Any) -> None:
        """Removes the item at that position or under that key. Error 5 for an unknown key, 9 for a position
        out of range."""
    def Add(self, Item: str, Key: str | None = ..., Before: Any = ..., After: Any = ...) -> None:
        """Inserts `Item` before the item that `Before` names, else after the one that `After` names, else at
        the end. An empty key is none. Error 457 for a key that is present, 5 or 9 where `Before` or `After`
        names no item; nothing is then added."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def __call__(self, Key: Any) -> str | None: ...
    def __delitem__(self, key: int | str) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[str]: ...
    def __reversed__(self) -> Iterator[str]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> str: ...
    @overload
    def __getitem__(self, key: slice) -> list[str]: ...

class XMLDocument(Object):
    """An XML document, parsed or to be written. Document types are not processed, no entities beyond the five
    of XML are expanded, nothing is fetched. Elements may nest to any depth."""

    def __init__(self) -> None: ...
    @property
    def RootElement(self) -> lwconfig.XMLElement:
        """The document element; never null. In a new document, or after a text without an element, it has no
        name yet: the caller names and fills it."""
    def LoadXML(self, Text: str) -> bool:
        """Replaces the document by the one in `Text`. False when the text is not well-formed: the document
        then holds the part before the fault, without an element whose start tag is not finished. Elements
        taken from the previous document stay valid and unchanged."""
    def LoadXMLWithOption(self, Text: str, Option: bool) -> bool:
        """As `LoadXML`. With `Option`, the text of an element keeps its white space. The text of an element
        with markup inside, such as HTML or a comment, is then as written: the markup stays, references are
        not resolved, and only the marks of CDATA sections are left out, as in any text. `SourcePath` is the
        file of the text, if any; errors name it as their place. `observer`, if any, watches the document as
        long as it or an element of it lives."""
    @property
    def XML(self) -> str:
        """The whole document as UTF-8 text with an XML declaration. Error 5 where the document element has no
        name yet."""

class XMLElement(Object):
    """An element of a document. The handle stays valid as long as it is held; copies refer to the same
    element."""

    Name: str
    """The tag name as written in the file. When set: error 5 for an invalid XML name."""
    @property
    def Text(self) -> str:
        """The character data directly inside the element, joined; the text as written where the document was
        loaded so."""
    @property
    def Attributes(self) -> lwconfig.XMLAttributes:
        """The attributes, in the order of the file."""
    @property
    def Children(self) -> lwconfig.XMLElements:
        """The child elements, in the order of the file."""
    def AddAttribute(self, Name: str, Value: str) -> lwconfig.XMLAttribute:
        """Appends an attribute. The value reads back exactly as set: control characters other than tab and
        line breaks are written as references too, which XML 1.0 forbids and this library reads. Error 5 for
        an invalid XML name, and for a value with a NUL character, which no file can hold."""
    def AddElement(self, Name: str, Text: str) -> lwconfig.XMLElement:
        """Appends a child element with this tag name and text; the text reads back exactly as set. Error 5 as
        above."""

class XMLElements(Object):
    """The child elements of one element, in document order."""

    def Item(self, Key: int) -> lwconfig.XMLElement:
        """The child at a position from 1. Error 9 where there is none."""
    @property
    def Count(self) -> int:
        """The number of child elements."""
    def __call__(self, Key: int) -> lwconfig.XMLElement: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.XMLElement]: ...
    def __reversed__(self) -> Iterator[lwconfig.XMLElement]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.XMLElement: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.XMLElement]: ...

class XMLAttributes(Object):
    """The attributes of one element, looked up by name without regard to letter case."""

    def Item(self, Key: Any) -> lwconfig.XMLAttribute:
        """The attribute of that name. Error 5 where the element has no such attribute, with the element's
        place."""
    def __call__(self, Key: Any) -> lwconfig.XMLAttribute: ...
    def __getitem__(self, key: str) -> lwconfig.XMLAttribute: ...

class XMLAttribute(Object):
    """An attribute of an element. The handle stays valid as long as it is held; copies refer to the same
    attribute."""

    @property
    def Value(self) -> str:
        """The value, entities resolved."""

class DiskFile(Object):
    """A path on disk, held as folder, base name and extension, and the file there while it is open. Paths are
    in the product's notation: backslashes; slashes are accepted, repeated separators count as one, "." and
    ".." are resolved. A path without drive and leading separator is relative to the current folder."""

    def __init__(self) -> None: ...
    Folder: _FilePath
    """The folder part of the path, with or without a backslash at its end."""
    @property
    def FolderPath(self) -> str:
        """The folder part, ending with a backslash; empty when there is none."""
    BaseName: str
    """The file name without its extension."""
    Extension: str
    """The extension without a leading dot. When set: with or without a leading dot."""
    @property
    def FileName(self) -> str:
        """Base name and extension, without folder."""
    FullPath: _FilePath
    """Folder, base name and extension, as one path. When set: splits the path; the extension follows the last
    dot of the file name."""
    @property
    def Exists(self) -> bool:
        """Whether a file, not a folder, exists at the full path."""
    @property
    def IsFolder(self) -> bool:
        """Whether the full path names an existing folder."""
    def Open(self, Mode: int, Access: int, Share: int, RecordLength: Any) -> None:
        """Opens the file: (3, 1) an existing file for reading, (4, 2) for writing from its start, replacing
        any old content. `share` and `recordLength` are accepted and have no effect. A file that cannot be
        opened leaves `IsOpen` false and raises nothing. Error 5 for other modes."""
    @property
    def IsOpen(self) -> bool:
        """Whether the last `Open` succeeded and no `Close` followed."""
    @property
    def ReadAll(self) -> str:
        """The whole content as text without byte-order mark, also of a file that was never opened; empty for
        one that does not exist or has no path. Error 70 or 75 for one that exists and cannot be read."""
    def Write(self, Text: str) -> None:
        """Appends text (UTF-8) to a file open for writing. Throws the error of a failed `Open`, else error 52
        when the file is not open for writing; 5 for text that is not valid UTF-8, 75 for a failing disk. The
        file on disk keeps its old content until `Close`."""
    def Close(self) -> None:
        """Closes the file. Written text is made durable and put in place in one step; when that fails, the
        error of the file layer is raised and the old content stays."""
    def Delete(self) -> None:
        """Deletes the file. Error 53 when there is none."""
    def Files(self, Pattern: str, Mode: int) -> lwconfig.DiskFiles:
        """The entries of the folder that match the pattern, including hidden ones, in the order of the file
        system or by their names in capital letters. `mode` is accepted and has no effect. A folder that does
        not exist has none; error 70 or 75 for one that cannot be listed."""

class DiskFiles(Object):
    """The files of a folder listing as a collection without keys."""

    def __init__(self) -> None: ...
    def Item(self, Key: Any) -> lwconfig.DiskFile | None:
        """The item at that position or under that key, or null."""
    @property
    def Count(self) -> int:
        """The number of items."""
    def __call__(self, Key: Any) -> lwconfig.DiskFile | None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[lwconfig.DiskFile]: ...
    def __reversed__(self) -> Iterator[lwconfig.DiskFile]: ...
    def __contains__(self, item: object) -> bool: ...
    @overload
    def __getitem__(self, key: int | str) -> lwconfig.DiskFile: ...
    @overload
    def __getitem__(self, key: slice) -> list[lwconfig.DiskFile]: ...

class RegistryAccess(Object):
    """The registry. Hives are 0x80000001 (current user) and 0x80000002 (local machine); any other is error 5.
    A registry that cannot be read or written is error 70 or 75; the error of a damaged registry file has its
    file, line and column."""

    def __init__(self) -> None: ...
    def GetValue(self, Hive: int, KeyPath: str, ValueName: str) -> Any:
        """The value; nothing where the key or value is absent. A value that is neither text nor number is
        returned as the hexadecimal digits of its bytes."""
    def CreateKey(self, Hive: int, KeyPath: str) -> None:
        """Creates the key and any missing parents; an existing key is left alone."""
    def SetValue(self, Hive: int, KeyPath: str, ValueName: str, Value: Any, ValueType: int) -> None:
        """Writes a text (type 1, or 2 with environment variables) or a number (type 4), creating the key and
        any missing parents. Error 5 for other types, 13 for data that the type cannot hold."""

class StringTools(Object):
    """Text and collection helpers."""

    def __init__(self) -> None: ...
    def KeyExists(self, Collection: lwconfig.Collection | None, Key: str) -> bool:
        """Whether the collection holds an item under the key."""
    def JoinCollection(self, Collection: lwconfig.Collection | None, Separator: str) -> str:
        """The items joined with the separator, in order."""
    def Piece(self, Text: str, Separator: str, Index: int) -> str:
        """The `index`-th piece, from 1, of the text split at the separator; empty where there is none."""
    def ObjectKeyExists(self, Collection: Any, Key: str) -> bool:
        """Whether a collection object yields an item for the key."""
    def SplitToCollection(self, Text: str, Separator: str) -> lwconfig.Collection:
        """The pieces of the text split at the separator, in order, without keys."""
    def ExpandPlaceholders(self, Format: str, Values: lwconfig.Collection | None, Delimiter: str) -> str:
        """Replaces each placeholder, a name between two delimiters, by the value under that name. A name
        without a value and a lone delimiter are copied unchanged; values are not expanded again."""

class ObjectReference(Object):
    """A reference to any object of this library that does not keep it alive."""

    def __init__(self) -> None: ...
    Object: Any
    """The object referred to; null before one is set and after it is destroyed. When set: null for none.
    Error 13 for a foreign object, which nothing would keep alive."""
