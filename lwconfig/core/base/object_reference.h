#pragma once

#include <memory>
#include <string>
#include <utility>

#include <lwconfig/core/base/error.h>
#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/variant.h>

namespace lwconfig {

/// A reference to an owner that does not keep it alive; null once the owner is destroyed.
template <class T>
class ObjectReference {
 public:
  ObjectReference() = default;
  /// The object referred to, or null.
  std::shared_ptr<T> Object() const { return mObject.lock(); }
  void SetObject(const std::shared_ptr<T>& object) { mObject = object; }

 private:
  std::weak_ptr<T> mObject;
};

/// A reference to any object of this library that does not keep it alive.
template <>
class ObjectReference<AnyObject> : public Counted<ObjectReference<AnyObject>> {
 public:
  static constexpr const char* kClassName = "ObjectReference";

  /// The object referred to; null before one is set and after it is destroyed.
  AnyObject Object() const {
    auto object = mObject.lock();
    return object ? AnyObject{std::move(object), mClass} : AnyObject{};
  }
  /// Null for none. Error 13 for a foreign object, which nothing would keep alive.
  void SetObject(const AnyObject& object) {
    if (object && object.Class == nullptr)
      throw Error(kTypeMismatch,
                  "An object of another library cannot be referred to without keeping it alive");
    mObject = object.Pointer;
    mClass = object.Class;
  }

 private:
  std::weak_ptr<void> mObject;
  const automation::ClassInfo* mClass = nullptr;
};

/// A reference to the object for others to hold. Error 91 for an object that no `std::shared_ptr` holds.
template <class T>
std::shared_ptr<T> SelfOf(T& object) {
  auto self = object.weak_from_this().lock();
  if (!self) {
    throw Error(kObjectNotSet, std::string("The ") + T::kClassName +
                                   " cannot be referred to: it was not made with std::make_shared");
  }
  return self;
}

/// An owning reference held in a property. Following it while it is null is error 91, never a crash.
template <class T>
class Owned {
 public:
  Owned() = default;
  Owned(std::nullptr_t) {}
  Owned(std::shared_ptr<T> object) : mObject(std::move(object)) {}
  operator const std::shared_ptr<T>&() const { return mObject; }
  explicit operator bool() const { return mObject != nullptr; }
  T* get() const { return mObject.get(); }
  T* operator->() const { return &Checked(); }
  T& operator*() const { return Checked(); }
  friend bool operator==(const Owned& a, const Owned& b) { return a.mObject == b.mObject; }
  friend bool operator==(const Owned& a, const std::shared_ptr<T>& b) { return a.mObject == b; }

 private:
  T& Checked() const {
    if (!mObject) throw Error(kObjectNotSet, "An object that this operation needs is not set");
    return *mObject;
  }
  std::shared_ptr<T> mObject;
};

}  // namespace lwconfig
