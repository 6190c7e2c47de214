#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include <tools/lwconfig/members/path.h>
#include <tools/lwconfig/reporter.h>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/core/base/variant.h>
#include <lwconfig/platform/components.h>

namespace lwconfig::tool {

/// The objects passed on the way to a value, the root first. The last one has the member in question.
using Way = std::vector<AnyObject>;

/// Where a path leads.
struct Place {
  lwconfig::tool::Way Way;
  Variant Value;
  automation::TypeInfo Type;  // as declared
};

/// The object model as the published interface shows it, walked by paths. While it lives, failures inside
/// published operations come here instead of to a message box.
class Model {
 public:
  explicit Model(Reporter& reporter);
  ~Model();
  Model(const Model&) = delete;
  Model& operator=(const Model&) = delete;

  const AnyObject& Root() const { return mRoot; }

  /// Gives an object of the caller's own a name that paths may begin with, before those of the root's
  /// members.
  void Name(const std::string& name, AnyObject object) { mNamed[name] = std::move(object); }
  /// Whether the way leads through an object with a name: nobody keeps what is in it.
  bool IsNamed(const Way& way) const;

  /// The value at the path, from the root or from the last object of `from`. Throws a `Fault` of the status
  /// `NotFound` for a member, item or object that does not exist.
  Place Follow(const MemberPath& path) { return Follow(path, path.Steps.size(), {mRoot}); }
  /// As above for the first steps of the path only.
  Place Follow(const MemberPath& path, std::size_t steps, Way from);
  /// The object at the path; a `Fault` where there is another value, or none.
  Way FollowToObject(const MemberPath& path, std::size_t steps, Way from);
  Way FollowToObject(const MemberPath& path) { return FollowToObject(path, path.Steps.size(), {mRoot}); }

  /// The member; a `Fault` of the status `NotFound`, with the names that there are, where there is none.
  static const automation::ClassInfo::Member& Find(const AnyObject& object, const MemberPath& path,
                                                   const PathStep& step);

  /// Uses a member. A failure inside the operation is thrown as it arose, with number and source in its text.
  Variant Invoke(const AnyObject& object, const char* member, unsigned kinds,
                 std::span<Variant> arguments = {});

  /// The value of a property without arguments; nothing where it cannot be read.
  std::optional<Variant> TryGet(const AnyObject& object, const char* member);

  /// By which the object is found in a collection; empty where its class has no keys.
  std::string KeyOf(const AnyObject& object);

  Reporter& Report() { return mReporter; }

 private:
  void Take(const MemberPath& path, const PathStep& step, Place& place);
  void TakeNamed(const MemberPath& path, const PathStep& step, const AnyObject& object, Place& place);
  void TakeMember(const MemberPath& path, const PathStep& step, const automation::ClassInfo::Member& member,
                  Place& place);
  void TakeItem(const MemberPath& path, const PathStep& step, Place& place);
  Variant Get(const AnyObject& object, const automation::ClassInfo::Member& member,
              std::span<Variant> arguments);

  Reporter& mReporter;
  platform::ComponentFactory mPreviousComponent;
  AnyObject mRoot;
  std::map<std::string, AnyObject> mNamed;
};

/// The object of a published class that the value is; null for another value and for no object.
const AnyObject* ObjectIn(const Variant& value);

}  // namespace lwconfig::tool
