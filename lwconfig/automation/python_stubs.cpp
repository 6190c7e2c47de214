#include <algorithm>

#include <lwconfig/automation/contracts.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/automation/python_stubs.h>
#include <lwconfig/automation/signature.h>

namespace lwconfig::automation {
namespace {

using Text = std::string;

constexpr std::size_t kColumns = 110;

// Qualify names of the module: members often have the names of classes.
constexpr const char* kBeginning = R"("""The configuration object model of Lexiwend.

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

)";

/// The contract as a documentation string, indented by `indent` blanks.
Text DocText(std::string_view contract, std::size_t indent) {
  if (contract.empty()) return {};
  const Text margin(indent, ' ');
  Text text = margin + "\"\"\"";
  std::size_t used = indent + 3;
  while (!contract.empty()) {
    const auto end = contract.find_first_of(" \n");
    const auto word = contract.substr(0, end);
    if (used + word.size() > kColumns) {
      while (text.back() == ' ') text.pop_back();
      text += "\n" + margin;
      used = indent;
    }
    for (const char c : word) text += c == '\\' ? Text("\\\\") : Text(1, c);
    used += word.size();
    if (end == std::string_view::npos) break;
    if (contract[end] == '\n') {
      text += "\n\n" + margin;
      used = indent;
      contract.remove_prefix(contract.find_first_not_of('\n', end));
    } else {
      text += ' ';
      ++used;
      contract.remove_prefix(end + 1);
    }
  }
  return text + "\"\"\"\n";
}

Text TypeText(const TypeInfo& type) {
  switch (type.Kind) {
    case ValueKind::None:
      return "None";
    case ValueKind::Boolean:
      return "bool";
    case ValueKind::Integer16:
    case ValueKind::Integer32:
      return "int";
    case ValueKind::Enumeration:
      return Text("lwconfig.") + type.Enumeration().Name + " | int";
    case ValueKind::Text:
      return "str";
    case ValueKind::Object:
      return Text("lwconfig.") + type.Class().Name();
    default:
      return "Any";
  }
}

Text OrNone(const TypeInfo& type, bool mayBeNone) {
  const Text text = TypeText(type);
  return mayBeNone && text != "Any" ? text + " | None" : text;
}

/// Callers may pass more types than a Python class that implements the member must accept.
Text ParameterText(const ClassInfo& info, const ParameterInfo& parameter) {
  const bool isLenient = !info.IsImplementable();
  Text type =
      OrNone(parameter.Type, parameter.Type.Kind == ValueKind::Object || (parameter.IsOptional && isLenient));
  if (isLenient && IsFileName(parameter.Name, parameter.Type)) type = "PathLike[str] | " + type;
  return Text(parameter.Name) + ": " + type + (parameter.IsOptional ? " = ..." : "");
}

Text ValueText(const TypeInfo& type) {
  return OrNone(type, type.MayBeNull);
}

/// The annotation of a property that can be set.
Text SettableText(const char* name, const TypeInfo& type) {
  if (IsFileName(name, type)) return "_FilePath";
  if (type.Kind == ValueKind::Object && !type.MayBeNull) return "_Owned[" + TypeText(type) + "]";
  return ValueText(type);
}

Text ResultText(const MemberInfo& slot) {
  Text result = ValueText(slot.Result);
  for (const ParameterInfo& parameter : slot.Parameters()) {
    if (parameter.IsReturned()) result += ", " + TypeText(parameter.Type);
  }
  return slot.ReturnedCount() > 0 ? "tuple[" + result + "]" : result;
}

Text FunctionText(const ClassInfo& info, const Text& name, const MemberInfo& slot,
                  std::string_view contract) {
  Text text = "    def " + name + "(self";
  for (const ParameterInfo& parameter : slot.Parameters()) text += ", " + ParameterText(info, parameter);
  text += ") -> " + ResultText(slot) + ":";
  return contract.empty() ? text + " ...\n" : text + "\n" + DocText(contract, 8);
}

Text MemberText(const ClassInfo& info, const ClassInfo::Member& member) {
  const auto contract = Contract(info.Name(), member.Name);
  const Text name = member.Name;
  if (member.Method != nullptr) return FunctionText(info, name, *member.Method, contract);
  if (!ParametersOf(member).empty()) return FunctionText(info, name, *member.Get, contract);
  // A Python class may implement it by an attribute, a property or a method.
  if (info.IsImplementable()) return "    " + name + ": Any\n" + DocText(contract, 4);
  if (member.Let == nullptr && member.Set == nullptr)
    return "    @property\n" + FunctionText(info, name, *member.Get, contract);
  return "    " + name + ": " + SettableText(member.Name, TypeOf(member)) + "\n" + DocText(contract, 4);
}

/// The members that Python adds to a class with a default member, and to one that can be enumerated.
Text ContainerText(const ClassInfo& info) {
  const ClassInfo::Member* item = info.Find(kDefaultMemberId);
  if (item == nullptr) return {};
  const Text type = TypeText(item->Get->Result);
  Text text = FunctionText(info, "__call__", *item->Get, {});
  if (!info.IsCollection()) return text + "    def __getitem__(self, key: str) -> " + type + ": ...\n";
  if (info.Find("Remove") != nullptr) text += "    def __delitem__(self, key: int | str) -> None: ...\n";
  return text + "    def __len__(self) -> int: ...\n    def __iter__(self) -> Iterator[" + type +
         "]: ...\n    def __reversed__(self) -> Iterator[" + type +
         "]: ...\n    def __contains__(self, item: object) -> bool: ...\n    @overload\n"
         "    def __getitem__(self, key: int | str) -> " +
         type + ": ...\n    @overload\n    def __getitem__(self, key: slice) -> list[" + type + "]: ...\n";
}

Text EventsText(const ClassInfo& info) {
  if (info.Events().empty()) return {};
  Text names;
  Text about =
      "Calls the callback at every event of that name, as long as the connection lives and is not "
      "closed.\n\n";
  for (const EventInfo& event : info.Events()) {
    names += (names.empty() ? "\"" : ", \"") + Text(event.Name) + "\"";
    about += Text("`") + event.Name + "`: " + Text(Contract(info.Name(), event.Name)) + "\n\n";
  }
  about.erase(about.find_last_not_of('\n') + 1);
  return "    def on(self, event: Literal[" + names +
         "], callback: Callable[[], object], /) -> lwconfig.Connection:\n" + DocText(about, 8);
}

Text ClassText(const ClassInfo& info) {
  Text text = Text("class ") + info.Name() + "(Object):\n" + DocText(Contract(info.Name()), 4) + "\n";
  if (info.IsCreatable()) text += "    def __init__(self) -> None: ...\n";
  for (const auto& member : info.Members()) {
    if (member.Id != kNewEnumId) text += MemberText(info, member);
  }
  return text + EventsText(info) + ContainerText(info) + "\n";
}

Text EnumerationText(const EnumInfo& info) {
  const Text name = info.Name;
  Text text = "class " + name + "(IntEnum):\n" + DocText(Contract(name), 4) + "\n";
  for (const EnumMember& member : info.Members) {
    text += Text("    ") + member.Name + " = " + std::to_string(member.Value);
    const auto meaning = Contract(name, member.Name);
    text += meaning.empty() ? Text("\n") : "  # " + Text(meaning) + "\n";
  }
  text += "\n";
  for (const EnumMember& member : info.Members) {
    text += Text(member.Name) + " = " + name + "." + member.Name + "\n";
  }
  return text + "\n";
}

}  // namespace

std::string PythonStubs() {
  Text text = kBeginning;
  for (const EnumInfo* info : PublishedEnumerations()) text += EnumerationText(*info);
  for (const ClassInfo* info : PublishedClasses()) text += ClassText(*info);
  text.pop_back();
  return text;
}

}  // namespace lwconfig::automation
