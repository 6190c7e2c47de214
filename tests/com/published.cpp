#include <algorithm>
#include <span>

#include <tests/com/published.h>

namespace lwconfig::testing {
namespace {

TYPEATTR AttributesOf(ITypeInfo& info) {
  TYPEATTR* lent = nullptr;
  info.GetTypeAttr(&lent);
  const TYPEATTR attributes = *lent;
  info.ReleaseTypeAttr(lent);
  return attributes;
}

ComPtr<ITypeInfo> Referred(ITypeInfo& info, HREFTYPE reference) {
  ComPtr<ITypeInfo> referred;
  info.GetRefTypeInfo(reference, &referred);
  return referred;
}

/// The interface of the class at that place; of an interface for late binding, that for early binding at -1.
ComPtr<ITypeInfo> Implemented(ITypeInfo& info, int at) {
  HREFTYPE reference = 0;
  info.GetRefTypeOfImplType(static_cast<UINT>(at), &reference);
  return Referred(info, reference);
}

Parameter ReadParameter(ITypeInfo& info, const TYPEDESC& type) {
  if (type.vt == VT_PTR) {
    Parameter to = ReadParameter(info, *type.lptdesc);
    ++to.Depth;
    return to;
  }
  if (type.vt != VT_USERDEFINED) return {type.vt, 0, ""};
  const auto declared = Referred(info, type.hreftype);
  const std::string name = NameOf(*declared.Get());
  if (AttributesOf(*declared.Get()).typekind == TKIND_ENUM) return {VT_I4, 0, name};
  return {VT_DISPATCH, -1, name.substr(1)};  // an object is itself a pointer
}

std::vector<Slot> ReadSlots(const std::string& owner, ITypeInfo& info) {
  const TYPEATTR attributes = AttributesOf(info);
  std::vector<Slot> slots;
  for (UINT at = 0; at < attributes.cFuncs; ++at) {
    FUNCDESC* function = nullptr;
    info.GetFuncDesc(at, &function);
    Slot& slot = slots.emplace_back(Slot{owner, NameOf(info, function->memid), attributes.guid,
                                         function->memid, static_cast<WORD>(function->invkind),
                                         static_cast<ULONG_PTR>(function->oVft)});
    for (const ELEMDESC& element : std::span(function->lprgelemdescParam, function->cParams)) {
      const bool isResult = (element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
      (isResult ? slot.Result : slot.Inputs).push_back(ReadParameter(info, element.tdesc));
    }
    info.ReleaseFuncDesc(function);
  }
  return slots;
}

void ReadConstants(ITypeInfo& info, std::vector<Constant>& constants) {
  for (UINT at = 0; at < AttributesOf(info).cVars; ++at) {
    VARDESC* constant = nullptr;
    info.GetVarDesc(at, &constant);
    constants.push_back({NameOf(info), NameOf(info, constant->memid), constant->lpvarValue->lVal});
    info.ReleaseVarDesc(constant);
  }
}

PublishedInterface Read(ITypeLib& library) {
  PublishedInterface published;
  for (UINT at = 0; at < library.GetTypeInfoCount(); ++at) {
    ComPtr<ITypeInfo> info;
    library.GetTypeInfo(at, &info);
    const TYPEATTR attributes = AttributesOf(*info.Get());
    if (attributes.typekind == TKIND_ENUM) ReadConstants(*info.Get(), published.Constants);
    if (attributes.typekind != TKIND_COCLASS) continue;
    const auto early = Implemented(*Implemented(*info.Get(), 0).Get(), -1);
    const std::string name = NameOf(*info.Get());
    const bool isCreatable = (attributes.wTypeFlags & TYPEFLAG_FCANCREATE) != 0;
    PublishedClass& made = published[name];
    made = {isCreatable, attributes.guid, AttributesOf(*early.Get()).guid, ReadSlots(name, *early.Get())};
    if (attributes.cImplTypes == 1) continue;
    const auto events = Implemented(*info.Get(), 1);
    made.Events = AttributesOf(*events.Get()).guid;
    made.Event = NameOf(*events.Get(), 1);
  }
  return published;
}

}  // namespace

Value Parameter::ReferenceTo(Value& value) const {
  void* const place = Type == VT_VARIANT ? static_cast<void*>(&value) : &value.llVal;
  return {static_cast<VARTYPE>(Type | VT_BYREF), &VARIANT::byref, place};
}

HRESULT Slot::Call(IUnknown* object, std::vector<Value>& values, unsigned nulls) const {
  std::vector<VARTYPE> types(values.size());
  std::vector<VARIANT> passed(values.begin(), values.end());
  std::vector<VARIANT*> pointers(values.size());
  for (std::size_t at = 0; at < values.size(); ++at) {
    const Parameter& parameter = at < Inputs.size() ? Inputs[at] : Result.front();
    types[at] = parameter.Type;
    pointers[at] = &passed[at];
    if (parameter.IsReference()) {
      if (types[at] != VT_VARIANT) values[at].vt = types[at];  // frees what the call stores
      passed[at] = parameter.ReferenceTo(values[at]);
      types[at] = passed[at].vt;
    }
    const bool isPointer = (types[at] & VT_BYREF) != 0 || types[at] == VT_DISPATCH || types[at] == VT_BSTR;
    if (isPointer && (nulls >> at & 1U) != 0) passed[at].byref = nullptr;
  }
  ComPtr<IUnknown> self;
  object->QueryInterface(Interface, &self);
  VARIANT ended{};
  const HRESULT code = ::DispCallFunc(self.Get(), Offset, CC_STDCALL, VT_ERROR,
                                      static_cast<UINT>(types.size()), types.data(), pointers.data(), &ended);
  return FAILED(code) ? code : ended.scode;
}

const Slot* PublishedClass::Find(DISPID id, WORD kind) const {
  const auto isIt = [&](const Slot& slot) { return slot.Id == id && slot.Kind == kind; };
  const auto found = std::ranges::find_if(Slots, isIt);
  return found == Slots.end() ? nullptr : &*found;
}

const PublishedInterface& Published() {
  // The system keeps a library that is in use, so that objects find their own type information fast.
  static ComPtr<ITypeLib> library;
  static const PublishedInterface published = [] {
    ::LoadTypeLibEx(Server::Path(), REGKIND_NONE, &library);
    return Read(*library.Get());
  }();
  return published;
}

}  // namespace lwconfig::testing
