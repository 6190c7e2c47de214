#include <lwconfig/automation/contracts.h>
#include <lwconfig/automation/idl.h>
#include <lwconfig/automation/published.h>

namespace lwconfig::automation {
namespace {

using Text = std::string;

/// The first sentence of a contract as an attribute; nothing where there is none.
Text HelpAttribute(std::string_view contract) {
  if (contract.empty()) return {};
  Text text = ", helpstring(\"";
  for (const char c : Summary(contract)) {
    if (c == '`') continue;
    if (c == '\\' || c == '"') text += '\\';
    text += c == '\n' ? ' ' : c;
  }
  return text + "\")";
}

Text UuidAttribute(const Text& name) {
  return "uuid(" + Text(Identity(name)) + ")";
}

Text TypeText(const TypeInfo& type) {
  switch (type.Kind) {
    case ValueKind::None:
      return "void";
    case ValueKind::Boolean:
      return "VARIANT_BOOL";
    case ValueKind::Integer16:
      return "short";
    case ValueKind::Integer32:
      return "long";
    case ValueKind::Enumeration:
      return (type.Declared != nullptr ? type.Declared : type.Enumeration)().Name;
    case ValueKind::Text:
      return "BSTR";
    case ValueKind::Object:
      return Text("_") + type.Class().Name() + "*";
    case ValueKind::AnyObject:
      return "IDispatch*";
    case ValueKind::Variant:
      return "VARIANT";
    case ValueKind::Enumerator:
      return "IUnknown*";
  }
  return {};
}

/// Only a variant can be absent; other types state their default value. A type library can hold none for a
/// reference: there the place itself may be null.
Text OptionalAttribute(const ParameterInfo& parameter) {
  if (parameter.IsByReference) return ", optional";
  switch (parameter.Type.Kind) {
    case ValueKind::Variant:
      return ", optional";
    case ValueKind::Text:
      return ", optional, defaultvalue(\"\")";
    default:
      return ", optional, defaultvalue(0)";
  }
}

Text ParameterText(const ParameterInfo& parameter) {
  return Text(parameter.IsByReference ? "[in, out" : "[in") +
         (parameter.IsOptional ? OptionalAttribute(parameter) : Text()) + "] " + TypeText(parameter.Type) +
         (parameter.IsByReference ? "* " : " ") + Text(parameter.Name);
}

Text IdText(std::int32_t id) {
  return "id(" + std::to_string(id) + ")";
}

const char* KindAttribute(InvokeKind kind) {
  switch (kind) {
    case kPropertyGet:
      return ", propget";
    case kPropertyLet:
      return ", propput";
    case kPropertySet:
      return ", propputref";
    default:
      return "";
  }
}

Text SlotText(const ClassInfo& owner, const MemberInfo& slot) {
  Text text = "    [" + IdText(slot.Id) + KindAttribute(slot.Kind);
  if (slot.Id == kNewEnumId) text += ", restricted, hidden";
  text += HelpAttribute(Contract(owner.Name(), slot.Name)) + "]\n    HRESULT " + slot.Name + "(";
  const char* separator = "";
  for (const ParameterInfo& parameter : slot.Parameters()) {
    text += separator + ParameterText(parameter);
    separator = ", ";
  }
  if (slot.Result.Kind != ValueKind::None)
    text += separator + ("[out, retval] " + TypeText(slot.Result)) + "* Result";
  return text + ");\n";
}

Text EnumerationText(const EnumInfo& info) {
  const Text name = info.Name;
  Text text = "  typedef [" + UuidAttribute("enumeration." + name) + HelpAttribute(Contract(name)) +
              "]\n  enum " + name + " {\n";
  for (const EnumMember& member : info.Members) {
    text += Text("    ") + member.Name + " = " + std::to_string(member.Value) +
            (&member == &info.Members.back() ? "\n" : ",\n");
  }
  return text + "  } " + name + ";\n\n";
}

Text InterfaceText(const ClassInfo& info) {
  const Text name = info.Name();
  Text text = "  [odl, " + UuidAttribute("interface._" + name) + ", dual, oleautomation, hidden" +
              HelpAttribute(Contract(name)) + "]\n  interface _" + name + " : IDispatch {\n";
  for (const MemberInfo& slot : info.Slots()) text += SlotText(info, slot);
  return text + "  };\n\n";
}

Text EventsText(const ClassInfo& info) {
  const Text name = info.Name();
  Text text = "  [" + UuidAttribute("events.__" + name) + ", hidden, helpstring(\"Events of " + name +
              ".\")]\n  dispinterface __" + name + " {\n    properties:\n    methods:\n";
  std::int32_t id = 1;
  for (const EventInfo& event : info.Events()) {
    text += "      [" + IdText(id++) + HelpAttribute(Contract(name, event.Name)) + "]\n      void " +
            event.Name + "();\n";
  }
  return text + "  };\n\n";
}

Text ClassText(const ClassInfo& info) {
  const Text name = info.Name();
  Text text = "  [" + UuidAttribute("class." + name) + (info.IsCreatable() ? "" : ", noncreatable") +
              HelpAttribute(Contract(name)) + "]\n  coclass " + name + " {\n    [default] interface _" +
              name + ";\n";
  if (!info.Events().empty()) text += "    [default, source] dispinterface __" + name + ";\n";
  return text + "  };\n\n";
}

}  // namespace

std::string InterfaceDescription() {
  const Text name = kLibraryName;
  Text text = "// The interface description of " + name +
              ". Written by `lwconfig describe --idl`; not to be edited.\n\n"
              "import \"oaidl.idl\";\n\n[" +
              UuidAttribute(name) + ", version(" + kLibraryVersion + "), helpstring(\"" +
              kLibraryDescription + "\")]\nlibrary " + name +
              " {\n"
              "  importlib(\"stdole2.tlb\");\n\n";
  for (const ClassInfo* info : PublishedClasses()) text += Text("  interface _") + info->Name() + ";\n";
  text += "\n";
  for (const EnumInfo* info : PublishedEnumerations()) text += EnumerationText(*info);
  for (const ClassInfo* info : PublishedClasses()) text += InterfaceText(*info);
  for (const ClassInfo* info : PublishedClasses()) {
    if (!info->Events().empty()) text += EventsText(*info);
  }
  for (const ClassInfo* info : PublishedClasses()) text += ClassText(*info);
  text.pop_back();
  return text + "};\n";
}

}  // namespace lwconfig::automation
