#include "object.h"

#include <cstddef>
#include <functional>
#include <unordered_map>
#include <utility>

#include <olectl.h>

#include "events.h"
#include "failures.h"
#include "type_library.h"

namespace lwconfig::com {
namespace {

/// The identity of an object. Includes its class: objects of different classes may have one address, since
/// one may begin with the other.
using Place = std::pair<const void*, const automation::ClassInfo*>;
struct PlaceHash {
  std::size_t operator()(const Place& place) const {
    return std::hash<const void*>()(place.first) ^ std::hash<const void*>()(place.second);
  }
};

/// Never destroyed: it outlives objects that clients failed to release.
std::unordered_map<Place, Object*, PlaceHash>& LiveObjects() {
  static auto* live = new std::unordered_map<Place, Object*, PlaceHash>;
  return *live;
}

Place PlaceOf(const AnyObject& model) {
  return {model.Pointer.get(), model.Class};
}

}  // namespace

IDispatch* Object::Publish(const AnyObject& model) {
  const auto found = LiveObjects().find(PlaceOf(model));
  Object* object = nullptr;
  if (found != LiveObjects().end()) {
    object = found->second;
    object->AddRef();
  } else {
    object = new Object(model);
  }
  return reinterpret_cast<IDispatch*>(&object->mDual);
}

Object::Object(const AnyObject& model)
    : mModel(model), mBinding(&BindingOf(*model.Class)), mDual{mBinding->Entries.data(), this} {
  LiveObjects().emplace(PlaceOf(model), this);
}

Object::~Object() {
  LiveObjects().erase(PlaceOf(mModel));
}

void* Object::Find(REFIID id) {
  if (id == IID_IUnknown || id == IID_IDispatch || id == mBinding->InterfaceId) return &mDual;
  if (id == IID_IProvideClassInfo) return static_cast<IProvideClassInfo2*>(this);
  if (id == IID_IConnectionPointContainer && mBinding->Class.Events().empty()) return nullptr;
  return Implements::Find(id);
}

HRESULT Object::GetClassInfo(ITypeInfo** result) {
  return FindTypeInfo(mBinding->ClassId, result);
}

HRESULT Object::GetGUID(DWORD kind, GUID* result) {
  if (result == nullptr) return E_POINTER;
  const bool isKnown = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID && !mBinding->Class.Events().empty();
  *result = isKnown ? mBinding->EventsId : GUID_NULL;
  return isKnown ? S_OK : E_INVALIDARG;
}

HRESULT Object::InterfaceSupportsErrorInfo(REFIID id) {
  return id == IID_IDispatch || id == mBinding->InterfaceId ? S_OK : S_FALSE;
}

HRESULT Object::EnumConnectionPoints(IEnumConnectionPoints** result) {
  return ListConnectionPoints(*this, result);
}

HRESULT Object::FindConnectionPoint(REFIID id, IConnectionPoint** result) {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return Guarded([&] {
    if (id == mBinding->EventsId) *result = EventsOf(*this);
    return *result != nullptr ? S_OK : CONNECT_E_NOCONNECTION;
  });
}

}  // namespace lwconfig::com
