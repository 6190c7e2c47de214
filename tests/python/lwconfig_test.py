"""The Python package, on a configuration of its own. Run by unittest; the package's folder is on the path."""

import ast
import copy
import enum
import gc
import os
import pathlib
import pydoc
import subprocess
import sys
import tempfile
import threading
import unittest
import weakref
from unittest import mock

import lwconfig

TEMPLATE = """<?xml version="1.0" encoding="UTF-8"?>
<PageTemplate Name="Manual" Description="For tests">
  <PageLayout Name="Method" FileName="Method.html" TitleTemplate="%%method%%.html" PageType="3"/>
  <PageLayout Name="Index" FileName="index.html" TitleTemplate="index.html"/>
  <NamespaceDef Name="LW.Core"/>
</PageTemplate>
"""


class ConfigurationTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.config = pathlib.Path(folder.name, "config")
        self.write("Templates/Manual/config.xml", TEMPLATE)
        for layout in ("Method.html", "index.html"):
            self.write("Templates/Manual/" + layout, "<html/>")
        self.write("Namespaces/core.xml", '<Profile Name="LW.Core"/>')
        registry = pathlib.Path(folder.name, "registry")
        registry.mkdir()
        path = str(self.config).replace("/", "\\\\")
        (registry / "machine.reg").write_text(
            "Windows Registry Editor Version 5.00\n\n"
            f'[HKEY_LOCAL_MACHINE\\Software\\Corvantis\\Lexiwend4]\n"ConfigPath"="{path}"\n')
        patch = mock.patch.dict(os.environ, LWCONFIG_REGISTRY=str(registry))
        patch.start()
        self.addCleanup(patch.stop)
        self.boxes = []
        lwconfig.set_message_box_handler(lambda *box: self.boxes.append(box))
        self.addCleanup(lwconfig.set_message_box_handler, None)
        self.root = lwconfig.Root()

    def tearDown(self):
        self.root.ResetLWConfig()

    def write(self, name, text):
        path = self.config / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)


class Collections(ConfigurationTest):
    def test_items_are_reached_in_every_way(self):
        layouts = self.root.PageTemplates("manual").PageLayouts
        method, index = layouts(1), layouts(2)
        self.assertEqual(len(layouts), 2)
        self.assertEqual(list(layouts), [method, index])
        self.assertEqual(list(reversed(layouts)), [index, method])
        self.assertIs(layouts["METHOD.html"], method)
        self.assertIs(layouts.Item(Key="index.html"), index)
        self.assertIs(layouts[0], method)
        self.assertIs(layouts[-1], index)
        self.assertEqual(layouts[::-1], [index, method])
        self.assertEqual(layouts[5:], [])
        self.assertIn("method.html", layouts)
        self.assertIn(method, layouts)
        self.assertNotIn(lwconfig.PageLayout(), layouts)
        for absent in (0, 3, "no.html", None, 1.5e10):
            self.assertIsNone(layouts(absent))
        with self.assertRaises(KeyError):
            layouts["no.html"]
        for outside in (2, -3):
            with self.assertRaises(IndexError):
                layouts[outside]
        with self.assertRaises(TypeError):
            layouts[1.5]
        del layouts["index.html"]
        self.assertEqual([layout.Name for layout in layouts], ["Method"])
        with self.assertRaises(KeyError):
            layouts.Remove("index.html")

    def test_texts_and_languages(self):
        texts = lwconfig.Collection()
        texts.Add("one", "K")
        texts.Add(Item="zero", Before=1)
        self.assertEqual(list(texts), ["zero", "one"])
        self.assertEqual(texts["k"], "one")
        self.assertIsNone(texts("absent"))
        languages = lwconfig.Languages()
        languages.Add(lwconfig.Language(), "Basic")
        self.assertIs(languages("absent"), languages[0])
        self.assertNotIn("absent", languages)
        with self.assertRaises(KeyError):
            languages["absent"]

    def test_changes_while_walking_do_no_harm(self):
        texts = lwconfig.Collection()
        for number in range(5):
            texts.Add(str(number))
        seen = []
        for text in texts:
            seen.append(text)
            texts.Remove(1)
        self.assertEqual(seen, ["0", "2", "4"])


class Objects(ConfigurationTest):
    def test_values_and_identity(self):
        layout = self.root.PageTemplates["Manual"].PageLayouts[0]
        self.assertIs(layout, self.root.PageTemplates["Manual"].PageLayouts[0])
        self.assertIs(layout.PageType, lwconfig.pgMethod)
        self.assertIsInstance(layout.PageType, lwconfig.PageTypeEnum)
        self.assertTrue(issubclass(lwconfig.PageTypeEnum, enum.IntEnum))
        layout.PageType = 99
        self.assertEqual(layout.PageType, 99)
        layout.TitleTemplate = "ä\u2028😀\udcff"
        self.assertEqual(layout.TitleTemplate, "ä\u2028😀\udcff")
        self.assertIn("PageLayout", repr(layout))
        self.assertIn("Method.html", repr(layout))
        self.assertIn("2", repr(self.root.PageTemplates["Manual"].PageLayouts))
        self.assertIn("!MISSING PHRASE", self.root.PageTemplates[0].Phrase("Title"))
        comment = lwconfig.ModelComment()
        for tag in (None, 7, "text", True, 2.5, comment, [1, 2]):
            comment.Tag = tag
            self.assertEqual(comment.Tag, tag)
        comment.Tag = None

    def test_typos_are_told(self):
        layout = lwconfig.PageLayout()
        with self.assertRaises(AttributeError):
            layout.Nmae = "x"
        with self.assertRaises(AttributeError):
            layout.IsHTMLHelpProjectFile = True
        with self.assertRaises(TypeError):
            layout.Load()
        with self.assertRaises(TypeError):
            layout.Clone(unknown=1)
        with self.assertRaises(TypeError):
            lwconfig.PageLayout("x")
        with self.assertRaises(TypeError):
            lwconfig.XMLElement()
        for name in ("DependantCount", "PageType"):
            with self.assertRaises(ValueError):
                setattr(layout, name, "many")
        with self.assertRaises(ValueError):
            layout.Name = None

    def test_copies(self):
        template = self.root.PageTemplates["Manual"]
        twin = copy.deepcopy(template)
        self.assertIsNot(twin, template)
        self.assertEqual(len(twin.PageLayouts), 2)
        definition = lwconfig.TOCDefinition()
        definition.PageTemplate = template
        self.assertIs(copy.deepcopy(definition).PageTemplate, template)
        link = lwconfig.ExternalLink()
        link.URLFormat = "u"
        self.assertEqual(copy.deepcopy(link).URLFormat, "u")
        with self.assertRaises(TypeError):
            copy.deepcopy(self.root)

    def test_by_reference_arguments_come_back(self):
        profile = self.root.NamespaceProfiles["LW.Core"]
        definition = lwconfig.NamespaceDef()
        definition.Name = "LW:A"
        profile.Add(definition, "LW:A")
        found, col = profile.GetNamespaceDefsByName("lw:a")
        self.assertIs(found, col)
        self.assertIs(found[0], definition)
        again, _ = profile.AllNamespaceDefs(col=found)
        self.assertIs(again, found)
        self.assertEqual(len(found), 2)

    def test_objects_outlive_root(self):
        layouts = self.root.PageTemplates["Manual"].PageLayouts
        self.root = None
        gc.collect()
        self.assertEqual(layouts[0].Name, "Method")
        self.root = lwconfig.Root()
        self.assertIsNot(self.root.PageTemplates["Manual"].PageLayouts, layouts)
        wrapper = weakref.ref(layouts)
        del layouts
        self.assertIsNone(wrapper())

    def test_threads(self):
        failures = []

        def work():
            try:
                for _ in range(200):
                    self.assertEqual(self.root.PageTemplates["Manual"].PageLayouts[0].Name, "Method")
            except BaseException as failure:  # reported on the main thread
                failures.append(failure)

        threads = [threading.Thread(target=work) for _ in range(4)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(failures, [])


class Help(unittest.TestCase):
    def test_members_tell_what_they_do(self):
        text = pydoc.render_doc(lwconfig.PageLayouts, renderer=pydoc.plaintext)
        self.assertIn("Add(self, /, obj, Key=None, Before=None, After=None)", text)
        self.assertIn("Add(obj As PageLayout, [Key As Text], [Before As Variant], [After As Variant])", text)
        self.assertIn("Count As Integer32 (read-only)", text)
        self.assertIn("ByRef", lwconfig.NamespaceDefs.AllNamespaceDefs.__doc__)
        for name in dir(lwconfig):
            thing = getattr(lwconfig, name)
            if isinstance(thing, type) and issubclass(thing, lwconfig.Object) and thing is not lwconfig.Object:
                for member in vars(thing):
                    self.assertTrue(member.startswith("_") or getattr(thing, member).__doc__, (name, member))

    def test_the_stubs_have_the_names_that_the_module_has(self):
        stub = ast.parse(pathlib.Path(lwconfig.__file__).with_suffix(".pyi").read_text(encoding="utf-8"))

        def defined(body):
            for node in body:
                for target in getattr(node, "targets", [getattr(node, "target", node)]):
                    name = getattr(target, "name", getattr(target, "id", "_"))
                    if not name.startswith("_"):
                        yield name, node

        there = {name for name in dir(lwconfig) if not name.startswith("_")}
        stubbed = dict(defined(stub.body))
        self.assertEqual(set(stubbed), there)
        for name, node in stubbed.items():
            thing = getattr(lwconfig, name)
            if isinstance(thing, type) and issubclass(thing, lwconfig.Object) and thing is not lwconfig.Object:
                members = {member for member in vars(thing) if not member.startswith("_")}
                # `on` is the base's; the stubs tell it for each class, with the events that there are.
                self.assertEqual({member for member, _ in defined(node.body)} - {"on"}, members, name)


class Failures(ConfigurationTest):
    def test_failures_keep_number_and_place(self):
        texts = lwconfig.Collection()
        texts.Add("a", "k")
        with self.assertRaises(lwconfig.Error) as caught:
            texts.Add("b", "K")
        self.assertEqual((caught.exception.number, caught.exception.source), (457, "LWConfigObjects"))
        self.assertIsNone(caught.exception.file)

        self.write("modelcomments/a.xml", "<ModelCommentProfile Name='a' Description=''>\n  <MC/></ModelCommentProfile>")
        with self.assertRaises(ValueError) as caught:
            self.root.ModelCommentProfiles
        self.assertIsInstance(caught.exception, lwconfig.Error)
        self.assertTrue(caught.exception.file.endswith("a.xml"))
        self.assertEqual((caught.exception.number, caught.exception.line, caught.exception.column), (5, 2, 4))
        self.assertIn("a.xml:2:4: ", str(caught.exception))

        file = lwconfig.DiskFile()
        file.FullPath = str(self.config / "absent")
        with self.assertRaises(FileNotFoundError):
            file.Delete()
        with self.assertRaises(AttributeError):
            file.on("Change", print)

    def test_message_boxes(self):
        catalogue = lwconfig.PageTemplates()
        catalogue.Add(lwconfig.PageTemplate(), "k")
        catalogue.Add(lwconfig.PageTemplate(), "k")
        self.assertEqual(len(self.boxes), 1)
        self.assertEqual(self.boxes[0][2], 48)
        lwconfig.set_message_box_handler(lambda: None)
        told = []
        with mock.patch("sys.unraisablehook", lambda raised: told.append(raised.exc_type)):
            catalogue.Add(lwconfig.PageTemplate(), "k")
        self.assertEqual(told, [TypeError])


class Events(ConfigurationTest):
    def test_handlers(self):
        layouts = lwconfig.PageLayouts()
        calls = []

        def failing():
            calls.append("failing")
            raise RuntimeError("of a callback")

        told = []
        hook = mock.patch("sys.unraisablehook", lambda raised: told.append(raised.exc_type))
        with layouts.on("ContentsChange", failing), hook:
            connection = layouts.on("contentschange", lambda: (calls.append("second"), connection.close()))
            layouts.Add(lwconfig.PageLayout())
            layouts.Add(lwconfig.PageLayout())
        self.assertEqual(told, [RuntimeError, RuntimeError])
        layouts.Add(lwconfig.PageLayout())
        self.assertEqual(calls, ["failing", "second", "failing"])
        self.assertEqual(len(layouts), 3)

        template = lwconfig.PageTemplate()
        template.on("PageLayoutsChange", lambda: template.PageLayouts.Remove(1))
        template.PageLayouts.Add(lwconfig.PageLayout())
        self.assertEqual(len(template.PageLayouts), 0)


class Provider(lwconfig.INamespaceProvider):
    def __init__(self, answer):
        self.answer = answer

    Name = "Mine"

    def GetItems(self, NamespaceDef, ParentItem, Filter=""):
        return [NamespaceDef, ParentItem, Filter]

    def VerifyMoniker(self, Moniker, Message):
        return self.answer, Message + " refused"


class Providers(ConfigurationTest):
    def test_python_implements_the_contract(self):
        provider = Provider(False)
        published = lwconfig.INamespaceProvider
        definition, parent = lwconfig.NamespaceDef(), object()
        self.assertEqual(published.GetItems(provider, definition, parent)[0], [definition, parent, ""])
        self.assertEqual(published.VerifyMoniker(provider, "m", "so"), (False, "so refused"))
        self.assertEqual(published.Name.__get__(provider), "Mine")
        self.assertIsNone(published.GetModuleItems(provider))
        comment = lwconfig.ModelComment()
        comment.Tag = provider
        identity = id(provider)
        del provider
        gc.collect()
        self.assertEqual(id(comment.Tag), identity)
        self.assertEqual(published.VerifyMoniker(comment.Tag, "m", ""), (False, " refused"))


class Shutdown(unittest.TestCase):
    def test_objects_and_handlers_may_outlive_everything(self):
        script = (
            "import lwconfig\n"
            "layouts = lwconfig.PageLayouts(); layouts.on('ContentsChange', lambda: layouts)\n"
            "comment = lwconfig.ModelComment(); comment.Tag = [comment]\n"
            "lwconfig.set_message_box_handler(print); root = lwconfig.Root()\n"
            "lwconfig.Root().ReplaceExternalDocs(lwconfig.ExternalDocs())\n"
            "print('done')\n")
        done = subprocess.run([sys.executable, "-c", script], capture_output=True, text=True, check=False)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "done\n", ""))


if __name__ == "__main__":
    unittest.main()
