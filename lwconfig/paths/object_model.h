#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/core/base/variant.h>
#include <lwconfig/paths/member_path.h>
#include <lwconfig/paths/model_listener.h>
#include <lwconfig/platform/components.h>

namespace lwconfig {

/// The objects of a path from the root to the one with the last member.
using Way = std::vector<AnyObject>;

/// Where a path leads.
struct PathTarget {
  lwconfig::Way Way;
  Variant Value;
  automation::TypeInfo Type;  // as declared
};

/// The published object model, followed by paths. While it lives, it receives the failures of published
/// operations instead of the error component.
class ObjectModel {
 public:
  explicit ObjectModel(ModelListener& listener);
  ~ObjectModel();
  ObjectModel(const ObjectModel&) = delete;
  ObjectModel& operator=(const ObjectModel&) = delete;

  const AnyObject& Root() const { return mRoot; }

  /// Gives a new object a name for the beginning of paths. It hides a member of the root of that name.
  void Name(const std::string& name, AnyObject object) { mNamed[name] = std::move(object); }
  /// Whether the way leads through a named object, which no file keeps.
  bool IsNamed(const Way& way) const;

  /// The value at the path, from the root or from the last object of `from`. Throws a `PathError` of the kind
  /// `NotFound` for a member, item or object that does not exist.
  PathTarget Follow(const MemberPath& path) { return Follow(path, path.Steps.size(), {mRoot}); }
  /// As above for the first steps of the path only.
  PathTarget Follow(const MemberPath& path, std::size_t steps, Way from);
  /// The object at the path; a `PathError` where there is another value, or none.
  Way FollowToObject(const MemberPath& path, std::size_t steps, Way from);
  Way FollowToObject(const MemberPath& path) { return FollowToObject(path, path.Steps.size(), {mRoot}); }

  /// The member; a `PathError` of the status `NotFound`, with the names that there are, where there is none.
  static const automation::ClassInfo::Member& Find(const AnyObject& object, const MemberPath& path,
                                                   const PathStep& step);

  /// Uses a member. A failure inside the operation is thrown as it arose, with number and source in its text.
  Variant Invoke(const AnyObject& object, const char* member, unsigned kinds,
                 std::span<Variant> arguments = {});

  /// The value of a property without arguments; nothing where it cannot be read.
  std::optional<Variant> TryGet(const AnyObject& object, const char* member);

  /// By which the object is found in a collection; empty where its class has no keys.
  std::string KeyOf(const AnyObject& object);

  ModelListener& Listener() const { return mListener; }

 private:
  void Take(const MemberPath& path, const PathStep& step, PathTarget& place);
  void TakeNamed(const MemberPath& path, const PathStep& step, const AnyObject& object, PathTarget& place);
  void TakeMember(const MemberPath& path, const PathStep& step, const automation::ClassInfo::Member& member,
                  PathTarget& place);
  void TakeItem(const MemberPath& path, const PathStep& step, PathTarget& place);
  Variant Get(const AnyObject& object, const automation::ClassInfo::Member& member,
              std::span<Variant> arguments);

  ModelListener& mListener;
  platform::ComponentFactory mPreviousComponent;
  AnyObject mRoot;
  std::map<std::string, AnyObject> mNamed;
};

/// The object of a published class that the value is; null for another value and for no object.
const AnyObject* ObjectIn(const Variant& value);

}  // namespace lwconfig
