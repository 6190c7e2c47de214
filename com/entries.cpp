#include "entries.h"

#include <array>
#include <cstddef>
#include <utility>

#include "failures.h"
#include "late_binding.h"
#include "object.h"
#include "slot_call.h"
#include "type_library.h"

namespace lwconfig::com {
namespace {

HRESULT STDMETHODCALLTYPE QueryInterface(DualInterface* self, REFIID id, void** result) {
  return self->Owner->QueryInterface(id, result);
}
ULONG STDMETHODCALLTYPE AddRef(DualInterface* self) {
  return self->Owner->AddRef();
}
ULONG STDMETHODCALLTYPE Release(DualInterface* self) {
  return self->Owner->Release();
}
HRESULT STDMETHODCALLTYPE GetTypeInfoCount(DualInterface*, UINT* result) {
  if (result == nullptr) return ForgetFailure(E_POINTER);
  *result = 1;
  return S_OK;
}
HRESULT STDMETHODCALLTYPE GetTypeInfo(DualInterface* self, UINT index, LCID, ITypeInfo** result) {
  if (result == nullptr) return ForgetFailure(E_POINTER);
  *result = nullptr;
  if (index != 0) return ForgetFailure(DISP_E_BADINDEX);
  return FindTypeInfo(self->Owner->Binding().InterfaceId, result);
}
HRESULT STDMETHODCALLTYPE GetIDsOfNames(DualInterface* self, REFIID reserved, LPOLESTR* names, UINT count,
                                        LCID, DISPID* ids) {
  return FindNames(*self->Owner, reserved, names, count, ids);
}
HRESULT STDMETHODCALLTYPE Invoke(DualInterface* self, DISPID id, REFIID reserved, LCID, WORD flags,
                                 DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* failure, UINT*) {
  return InvokeLate(*self->Owner, id, reserved, flags, parameters, result, failure);
}

/// Arguments are passed in whole words, on the stack or in registers. The function of a slot depends on the
/// slot's number and on the number of words, which the callee removes in some calling conventions.
template <std::size_t>
using WordOf = Word;
template <std::size_t Slot, class Words>
struct SlotFunction;
template <std::size_t Slot, std::size_t... I>
struct SlotFunction<Slot, std::index_sequence<I...>> {
  static HRESULT STDMETHODCALLTYPE Call(DualInterface* self, WordOf<I>... words) {
    const std::array<Word, sizeof...(I)> held{words...};
    return CallSlot(*self->Owner, Slot, held.data());
  }
};

constexpr std::size_t kMostSlots = 96;
constexpr std::size_t kMostWords = sizeof(Word) == 8 ? automation::kMostParameters + 1 : 12;

using Column = std::array<const void*, kMostSlots>;

template <std::size_t Words, std::size_t... Slot>
Column MakeColumn(std::index_sequence<Slot...>) {
  return {reinterpret_cast<const void*>(&SlotFunction<Slot, std::make_index_sequence<Words>>::Call)...};
}
template <std::size_t... Words>
std::array<Column, sizeof...(Words)> MakeColumns(std::index_sequence<Words...>) {
  return {MakeColumn<Words>(std::make_index_sequence<kMostSlots>())...};
}

}  // namespace

std::vector<const void*> InterfaceEntries(const automation::ClassInfo& info) {
  static const auto columns = MakeColumns(std::make_index_sequence<kMostWords + 1>());
  std::vector<const void*> entries{
      reinterpret_cast<const void*>(&QueryInterface), reinterpret_cast<const void*>(&AddRef),
      reinterpret_cast<const void*>(&Release),        reinterpret_cast<const void*>(&GetTypeInfoCount),
      reinterpret_cast<const void*>(&GetTypeInfo),    reinterpret_cast<const void*>(&GetIDsOfNames),
      reinterpret_cast<const void*>(&Invoke),
  };
  std::size_t number = 0;
  for (const automation::MemberInfo& slot : info.Slots())
    entries.push_back(columns.at(WordCount(slot)).at(number++));
  return entries;
}

}  // namespace lwconfig::com
