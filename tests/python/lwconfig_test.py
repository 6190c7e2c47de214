"""The Python package, on a configuration of its own. Run by unittest; the package's folder is on the path."""

from __future__ import annotations

import copy
import enum
import gc
import os
import pathlib
import shutil
import pickle
import pydoc
import re
import subprocess
import sys
import tempfile
import unittest
import weakref
from collections.abc import Callable, Iterator
from concurrent.futures import ThreadPoolExecutor
from typing import Any
from unittest import mock

import lwconfig
from lwconfig import _failures

TEMPLATE = """<?xml version="1.0" encoding="UTF-8"?>
<PageTemplate Name="Manual" Description="For tests">
  <PageLayout Name="Method" FileName="Method.html" TitleTemplate="%%method%%.html" PageType="3"/>
  <PageLayout Name="Index" FileName="index.html" TitleTemplate="index.html"/>
  <NamespaceDef Name="LW.Core"/>
</PageTemplate>
"""
LOCAL_MACHINE = -0x7FFFFFFE


class ConfigurationTest(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.config = pathlib.Path(folder.name, "config")
        for name, text in (
            ("Templates/Manual/config.xml", TEMPLATE),
            ("Templates/Manual/Method.html", ""),
            ("Templates/Manual/index.html", ""),
            ("Namespaces/core.xml", '<Profile Name="LW.Core"/>'),
        ):
            self.write(name, text)
        patch = mock.patch.dict(os.environ, LWCONFIG_REGISTRY=folder.name)
        patch.start()
        self.addCleanup(patch.stop)
        key = r"Software\Corvantis\Lexiwend4"
        lwconfig.RegistryAccess().SetValue(LOCAL_MACHINE, key, "ConfigPath", str(self.config), 1)
        self.boxes: list[tuple[str, str, int]] = []
        lwconfig.set_message_box_handler(lambda title, text, icon: self.boxes.append((title, text, icon)))
        self.addCleanup(lwconfig.set_message_box_handler, None)
        self.root = lwconfig.Root()

    def tearDown(self) -> None:
        self.root.ResetLWConfig()

    def unraisable(self) -> list[type[BaseException]]:
        """The kinds of the exceptions that nobody can handle, from now on."""
        kinds: list[type[BaseException]] = []
        hook = mock.patch("sys.unraisablehook", lambda raised: kinds.append(raised.exc_type))
        hook.start()
        self.addCleanup(hook.stop)
        return kinds

    def write(self, name: str, text: str) -> None:
        path = self.config / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)


class Collections(ConfigurationTest):
    def test_items_are_reached_in_every_way(self) -> None:
        layouts = self.root.PageTemplates["manual"].PageLayouts
        method, index = layouts
        self.assertEqual((layouts(1), layouts[0], layouts[-1]), (method, method, index))
        self.assertEqual((layouts["METHOD.html"], layouts.Item(Key="index.html")), (method, index))
        self.assertEqual((len(layouts), list(reversed(layouts))), (2, [index, method]))
        self.assertEqual((layouts[::-1], layouts[5:]), ([index, method], []))
        for there in ("method.html", method):
            self.assertIn(there, layouts)
        for absent in (lwconfig.PageLayout(), "absent"):
            self.assertNotIn(absent, layouts)
        self.assertIsNone(layouts(None))
        del layouts["index.html"]
        self.assertEqual([layout.Name for layout in layouts], ["Method"])

    def test_languages_have_a_default_that_is_no_item(self) -> None:
        languages = lwconfig.Languages()
        languages.Add(lwconfig.Language(), "Basic")
        self.assertIs(languages("absent"), languages[0])
        self.assertNotIn("absent", languages)


class FailingPath:
    def __fspath__(self) -> str:
        raise ZeroDivisionError


class Objects(ConfigurationTest):
    def test_values_and_identity(self) -> None:
        layout = self.root.PageTemplates["Manual"].PageLayouts[0]
        self.assertIs(layout.PageType, lwconfig.pgMethod)
        self.assertTrue(issubclass(lwconfig.PageTypeEnum, enum.IntEnum))
        layout.TitleTemplate = "ä\u2028😀\udcff"
        self.assertEqual(layout.TitleTemplate, "ä\u2028😀\udcff")
        comment = lwconfig.ModelComment()
        for tag in (True, 2.5, comment, [1, 2], pathlib.Path("x"), None):
            comment.Tag = tag
            self.assertEqual(comment.Tag, tag)

    def test_representations_tell_class_and_key(self) -> None:
        layouts = self.root.PageTemplates["Manual"].PageLayouts
        options, comment, document = lwconfig.VBOptions(), lwconfig.ModelComment(), lwconfig.XMLDocument()
        options.WrapCharacters = 72
        options.VBAShowFriend = False
        comment.MemberName = "x" * 100
        document.LoadXML("<a b='c'/>")
        for thing, text in (
            (layouts, "<lwconfig.PageLayouts of 2>"),
            (layouts[0], "<lwconfig.PageLayout FileName='Method.html'>"),
            (self.root.NamespaceProfiles[0], "<lwconfig.NamespaceDefs Name='LW.Core' of 0>"),
            (options, "<lwconfig.VBOptions WrapCharacters=72 VBAShowFriend=False>"),
            (lwconfig.SpellingOptions(), "<lwconfig.SpellingOptions at its defaults>"),
            (comment, f"<lwconfig.ModelComment MemberName='{'x' * 37}...{'x' * 38}' InsertionPoint=ctPrefix>"),
            (document.RootElement.Attributes["B"], "<lwconfig.XMLAttribute Value='c'>"),
            (Provider(False), "<__main__.Provider Name='Mine'>"),
            (layouts.on("ContentsChange", print), "<lwconfig.Connection PageLayouts.ContentsChange>"),
        ):
            self.assertEqual(repr(thing), text)
        with layouts.on("ContentsChange", print) as connection:
            connection.close()
        self.assertEqual(repr(connection), "<lwconfig.Connection PageLayouts.ContentsChange closed>")

    def test_path_objects_name_files(self) -> None:
        path = self.config / "tags.xml"
        definitions, again, file = lwconfig.TaggedCommentDefs(), lwconfig.TaggedCommentDefs(), lwconfig.DiskFile()
        definitions.Add(lwconfig.TaggedCommentDef(), "k")
        definitions.SaveTo(FileName=path)
        again.LoadFrom(path)
        self.assertEqual(len(again), 1)
        file.FullPath = path
        self.assertTrue(file.Exists)
        self.assertEqual(lwconfig.NativePath(path), str(path))

    def test_copies(self) -> None:
        template = self.root.PageTemplates["Manual"]
        twin = copy.deepcopy(template)
        self.assertIsNot(twin, template)
        self.assertEqual(len(twin.PageLayouts), 2)
        twin.PageLayouts = None
        self.assertIsNone(twin.PageLayouts)
        definition = lwconfig.TOCDefinition()
        definition.PageTemplate = template
        self.assertIs(copy.deepcopy(definition).PageTemplate, template)
        link = lwconfig.ExternalLink()
        link.URLFormat = "u"
        self.assertEqual(copy.deepcopy(link).URLFormat, "u")

    def test_objects_outlive_root(self) -> None:
        layouts = self.root.PageTemplates["Manual"].PageLayouts
        del self.root
        gc.collect()
        self.assertEqual(layouts[0].Name, "Method")
        self.root = lwconfig.Root()
        self.assertIsNot(self.root.PageTemplates["Manual"].PageLayouts, layouts)
        wrapper = weakref.ref(layouts)
        del layouts
        self.assertIsNone(wrapper())

    def test_threads(self) -> None:
        def work(_: int) -> str:
            return self.root.PageTemplates["Manual"].PageLayouts[0].Name

        with ThreadPoolExecutor(4) as pool:
            self.assertEqual(set(pool.map(work, range(800))), {"Method"})


def published_members() -> Iterator[tuple[str, set[str]]]:
    for name, thing in vars(lwconfig).items():
        if isinstance(thing, type) and issubclass(thing, lwconfig.Object) and thing is not lwconfig.Object:
            yield name, {member for member in vars(thing) if not member.startswith("_")}


class Help(unittest.TestCase):
    def test_members_tell_what_they_do(self) -> None:
        text = pydoc.render_doc(lwconfig.PageLayouts, renderer=pydoc.plaintext)  # type: ignore[attr-defined]
        self.assertIn("Add(self, /, obj, Key=None, Before=None, After=None)", text)
        self.assertIn("Add(obj As PageLayout, [Key As Text], [Before As Variant], [After As Variant])", text)
        self.assertIn("Count As Integer32 (read-only)", text)
        self.assertNotIn("tuple", str(lwconfig.NamespaceDefs.AllNamespaceDefs.__doc__))
        self.assertIn("tuple", str(lwconfig.INamespaceProvider.VerifyMoniker.__doc__))
        for name, members in published_members():
            for member in members:
                self.assertTrue(getattr(getattr(lwconfig, name), member).__doc__, (name, member))

    def test_the_stubs_have_the_names_that_the_module_has(self) -> None:
        stub = pathlib.Path(lwconfig.__file__).with_suffix(".pyi").read_text(encoding="utf-8")
        stubbed = set(re.findall(r"^(?:class |def )?([A-Za-z]\w*)(?:\(| = |:)", stub, re.M))
        self.assertEqual(stubbed | {*_failures.__all__}, {name for name in dir(lwconfig) if name[0] != "_"})
        for name, members in published_members():
            (body,) = re.findall(rf"^class {name}\(Object\):\n(.*?)(?=\nclass |\Z)", stub, re.M | re.S)
            declared = set(re.findall(r"^    (?:def )?([A-Za-z]\w*)[:(]", body, re.M))
            # `on` is the base's; the stubs tell it for each class, with the events that there are.
            self.assertEqual(declared - {"on"}, members, name)


class Failures(ConfigurationTest):
    def test_failures_keep_number_and_place(self) -> None:
        self.write("modelcomments/a.xml", "<ModelCommentProfile Name='a' Description=''>\n  <MC/></ModelCommentProfile>")
        with self.assertRaises(ValueError) as caught:
            self.root.ModelCommentProfiles
        failure = caught.exception
        assert isinstance(failure, lwconfig.Error)
        self.assertTrue(str(failure.file).endswith("a.xml"))
        self.assertEqual((failure.number, failure.source, failure.line, failure.column), (5, "LWConfigObjects", 2, 4))
        self.assertIn("a.xml:2:4: ", str(failure))
        for twin in (pickle.loads(pickle.dumps(failure)), copy.deepcopy(failure)):
            self.assertEqual((type(twin), vars(twin), str(twin)), (type(failure), vars(failure), str(failure)))

    def test_each_failure_has_the_class_that_fits_however_it_is_reached(self) -> None:
        layout: Any = lwconfig.PageLayout()
        layouts: Any = lwconfig.PageLayouts()
        texts, languages = lwconfig.Collection(), lwconfig.Languages()
        texts.Add("a", "k")
        languages.Add(lwconfig.Language(), "Basic")
        document, file = lwconfig.XMLDocument(), lwconfig.DiskFile()
        document.LoadXML("<a/>")
        file.FullPath = str(self.config / "absent")
        self.write("modelcomments/a.xml", "<ModelCommentProfile><MC/></ModelCommentProfile>")
        rows: tuple[tuple[type[Exception], str, Callable[[], object]], ...] = (
            (AttributeError, "Nmae", lambda: setattr(layout, "Nmae", "x")),
            (TypeError, "positions", lambda: layouts[1.5]),
            (TypeError, "no arguments", lambda: lwconfig.PageLayout("x")),  # type: ignore[call-arg]
            (TypeError, "", lambda: copy.deepcopy(self.root)),
            (ValueError, "null", lambda: lwconfig.NativePath("a\0b")),
            (ZeroDivisionError, "", lambda: lwconfig.NativePath(FailingPath())),
            (lwconfig.MemberError, "read-only", lambda: setattr(layout, "IsHTMLHelpProjectFile", True)),
            (lwconfig.MemberError, "deleted", lambda: delattr(layout, "Name")),
            (lwconfig.MemberError, "Change", lambda: layout.on("Change", print)),
            (lwconfig.CallError, "missing", lambda: layout.Load()),
            (lwconfig.CallError, "unknown", lambda: layout.Clone(unknown=1)),
            (lwconfig.CallError, "XMLElement", lwconfig.XMLElement),
            (lwconfig.BadValueError, "many", lambda: setattr(layout, "DependantCount", "many")),
            (lwconfig.BadValueError, "PageLayout.Name", lambda: setattr(layout, "Name", None)),
            (lwconfig.BadValueError, "PageLayout.Name", lambda: setattr(layout, "Name", pathlib.Path("x"))),
            (lwconfig.BadValueError, "PageLayout.Name, argument 1", lambda: setattr(layout, "Name", "\ud800")),
            (lwconfig.UnknownKeyError, "PageLayouts", lambda: layouts["absent"]),
            (lwconfig.UnknownKeyError, "Languages", lambda: languages["absent"]),
            (lwconfig.UnknownKeyError, "absent", lambda: document.RootElement.Attributes["absent"]),
            (lwconfig.UnknownKeyError, "absent", lambda: document.RootElement.Attributes.Item("absent")),
            (lwconfig.UnknownKeyError, "absent", lambda: layouts.__delitem__("absent")),
            (lwconfig.UnknownKeyError, "absent", lambda: texts.Add("b", Before="absent")),
            (lwconfig.UnknownPositionError, "no item [-1]", lambda: layouts[-1]),
            (lwconfig.UnknownPositionError, "no item [1]", lambda: texts[1]),
            (lwconfig.UnknownPositionError, "no item [1000", lambda: layouts[10**30]),
            (lwconfig.BadValueError, "K", lambda: texts.Add("b", "K")),
            (lwconfig.BadValueError, "Collection.Add, argument 2 (Key): ", lambda: texts.Add("b", Key="\ud800")),
            (lwconfig.BadValueError, "Collection.Item", lambda: texts["\ud800"]),
            (lwconfig.BadValueError, "a.xml:1:2: ", lambda: lwconfig.ModelCommentProfiles().Load()),
            (lwconfig.MissingFileError, "absent", lambda: file.Delete()),
            (lwconfig.Error, "", lambda: lwconfig.NodeDef().PageLayout),
        )
        for kind, text, failing in rows:
            with self.assertRaises(kind) as caught:
                failing()
            self.assertIs(type(caught.exception), kind)
            self.assertIn(text, str(caught.exception))

    def test_message_boxes(self) -> None:
        catalogue = lwconfig.PageTemplates()
        catalogue.Add(lwconfig.PageTemplate(), "k")
        catalogue.Add(lwconfig.PageTemplate(), "k")
        self.assertEqual([icon for _, _, icon in self.boxes], [48])
        lwconfig.set_message_box_handler(lambda: None)  # type: ignore[misc, arg-type]
        told = self.unraisable()
        catalogue.Add(lwconfig.PageTemplate(), "k")
        self.assertEqual(told, [TypeError])


class Events(ConfigurationTest):
    def test_handlers(self) -> None:
        layouts, calls, told = lwconfig.PageLayouts(), [], self.unraisable()

        def failing() -> None:
            calls.append("failing")
            raise RuntimeError("of a callback")

        with layouts.on("ContentsChange", failing):
            dropped = layouts.on("ContentsChange", lambda: calls.append("dropped"))
            layouts.Add(lwconfig.PageLayout())
            del dropped
            layouts.Add(lwconfig.PageLayout())
        layouts.Add(lwconfig.PageLayout())
        self.assertEqual(calls, ["failing", "dropped", "failing"])
        self.assertEqual(told, [RuntimeError, RuntimeError])


class Provider(lwconfig.INamespaceProvider):
    def __init__(self, answer: bool) -> None:
        self.answer = answer

    Name = "Mine"

    def GetItems(self, NamespaceDef: lwconfig.NamespaceDef | None, ParentItem: object, Filter: str = "") -> object:
        return NamespaceDef, ParentItem, Filter

    def VerifyMoniker(self, Moniker: str, Message: str) -> tuple[bool, str]:
        return self.answer, Message + " refused"


class Providers(ConfigurationTest):
    def test_python_implements_the_contract(self) -> None:
        provider = Provider(False)
        published = lwconfig.INamespaceProvider
        definition, parent = lwconfig.NamespaceDef(), object()
        self.assertEqual(published.GetItems(provider, definition, parent), (definition, parent, ""))
        self.assertEqual(published.VerifyMoniker(provider, "m", "so"), (False, "so refused"))
        self.assertEqual(vars(published)["Name"].__get__(provider), "Mine")
        self.assertIsNone(published.GetModuleItems(provider))
        comment = lwconfig.ModelComment()
        comment.Tag = provider
        identity = id(provider)
        del provider
        gc.collect()
        self.assertEqual(id(comment.Tag), identity)
        self.assertEqual(published.VerifyMoniker(comment.Tag, "m", ""), (False, " refused"))


class Configurations(ConfigurationTest):
    def other(self) -> pathlib.Path:
        other = self.config.parent / "other"
        shutil.copytree(self.config, other)
        (other / "Templates/Manual/config.xml").write_text(TEMPLATE.replace("Manual", "Other"))
        return other

    def test_a_folder_is_checked_by_itself(self) -> None:
        other = self.other()
        (other / "Templates/Manual/config.xml").write_text('<PageTemplate Name="T" Description="" Suports=""/>')
        [problem] = [problem for problem in lwconfig.check(other) if problem.code == "unread-attribute"]
        self.assertEqual(
            (problem.severity, problem.file, problem.line, problem.column, problem.path, problem.suggestion),
            ("warning", str(other / "Templates/Manual/config.xml"), 1, 39, "PageTemplates[T]", "Supports"))
        self.assertRegex(repr(problem), r"^<lwconfig.Problem .*config.xml:1:39: nothing reads .*\[unread-attribute\]>$")
        self.assertFalse([problem for problem in lwconfig.check() if problem.code == "unread-attribute"])
        for folder in (str(other / "missing"), ""):
            with self.assertRaises(FileNotFoundError):
                lwconfig.check(folder)
            with self.assertRaises(FileNotFoundError), lwconfig.configuration(folder):
                self.fail("it was opened")

    def test_paths_lead_to_objects_and_values(self) -> None:
        template = lwconfig.find("PageTemplates[Manual]")
        self.assertIs(type(template), lwconfig.PageTemplate)
        self.assertEqual(lwconfig.find("PageTemplates[1].Name"), template.Name)
        for path, error in (("PageTemplates[none]", KeyError), ("Nothing", KeyError), ("PageTemplates[", ValueError)):
            with self.assertRaises(error):
                lwconfig.find(path)

    def test_a_folder_is_opened_by_itself(self) -> None:
        other = self.other()
        outer = lwconfig.configuration(other)
        with outer as root:
            self.assertEqual(root.PageTemplates[0].Name, "Other")
            with lwconfig.configuration(self.config) as inner:
                self.assertEqual(inner.PageTemplates[0].Name, "Manual")
                with self.assertRaises(lwconfig.Error):
                    outer.__exit__(None, None, None)
        self.assertEqual(self.root.PageTemplates[0].Name, "Manual")

    def test_blocks_that_overlap_write_nothing_and_keep_nothing_back(self) -> None:
        def edit(width: int) -> Iterator[None]:
            with lwconfig.transaction():
                self.root.VBOptions.WrapCharacters = width
                yield

        before = self.root.VBOptions.WrapCharacters
        first, second = edit(40), edit(41)
        next(first)
        next(second)
        for late in (first, second):
            with self.assertRaises(lwconfig.Error):
                next(late, None)
        self.assertEqual(self.root.VBOptions.WrapCharacters, before)
        self.root.VBOptions.WrapCharacters = 42
        self.assertIn('"WrapCharacters"="42"', pathlib.Path(os.environ["LWCONFIG_REGISTRY"], "user.reg").read_text())

    def test_a_transaction_writes_all_or_nothing(self) -> None:
        file = self.config / "Templates/Manual/config.xml"
        before = file.read_text()

        def change(description: str) -> None:
            template = self.root.PageTemplates["Manual"]
            assert template is not None
            template.Description = description
            self.root.PageTemplates.SaveTemplate(template)
            self.root.VBOptions.WrapCharacters = 33

        def stored() -> tuple[bool, int, str]:
            template = self.root.PageTemplates["Manual"]
            assert template is not None
            return file.read_text() == before, self.root.VBOptions.WrapCharacters, template.Description

        untouched = stored()
        with self.assertRaises(ZeroDivisionError), lwconfig.transaction():
            change("failed")
            raise ZeroDivisionError
        self.assertEqual(stored(), untouched)
        with lwconfig.transaction() as transaction:
            change("dropped")
            self.assertIn('+', transaction.difference())
            transaction.roll_back()
        self.assertEqual(stored(), untouched)
        with self.assertRaises(PermissionError) as raised, lwconfig.transaction():
            change("late")
            file.write_text(before.replace("Manual", "Foreign"))
        self.assertIn("config.xml", str(raised.exception))
        self.assertIn("Foreign", file.read_text())
        file.write_text(before)
        self.root.ResetLWConfig()
        with lwconfig.transaction():
            change("kept")
            self.assertEqual(file.read_text(), before)
        self.assertEqual(stored(), (False, 33, "kept"))


class Shutdown(unittest.TestCase):
    def test_objects_and_handlers_may_outlive_everything(self) -> None:
        script = (
            "import lwconfig\n"
            "layouts = lwconfig.PageLayouts(); link = layouts.on('ContentsChange', lambda: layouts)\n"
            "comment = lwconfig.ModelComment(); comment.Tag = [comment]\n"
            "lwconfig.set_message_box_handler(print); root = lwconfig.Root()\n"
            "lwconfig.Root().ReplaceExternalDocs(lwconfig.ExternalDocs())\n"
            "print('done')\n")
        done = subprocess.run([sys.executable, "-c", script], capture_output=True, text=True, check=False)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "done\n", ""))


if __name__ == "__main__":
    unittest.main()
