#pragma once

#include <map>

#include <tests/com/slots.h>

namespace lwconfig::testing {

/// One object of every published class.
class ObjectPool {
 public:
  explicit ObjectPool(const Server& server) {
    for (const SlotClass& info : SlotClasses()) {
      if (info.IsCreatable) mObjects[info.Name] = server.Create(info.Name);
    }
    // The others belong to a document.
    const Object root = Get(mObjects["XMLDocument"], L"RootElement").ToObject();
    Put(root, L"Name", L"Sample");
    Call(root, L"AddElement", {L"Child", L"text"});
    mObjects["XMLElement"] = root;
    mObjects["XMLElements"] = Get(root, L"Children").ToObject();
    mObjects["XMLAttribute"] = Call(root, L"AddAttribute", {L"Name", L"value"}).ToObject();
    mObjects["XMLAttributes"] = Get(root, L"Attributes").ToObject();
  }

  const Object& Of(const std::string& className) const { return mObjects.at(className); }
  /// Of that interface, through which it can be called early bound; null for the interfaces of the system.
  Object With(const IID& id) const {
    Object found;
    for (const SlotClass& info : SlotClasses()) {
      if (*info.Interface == id) Of(info.Name)->QueryInterface(id, &found);
    }
    return found;
  }

 private:
  std::map<std::string, Object> mObjects;
};

}  // namespace lwconfig::testing
