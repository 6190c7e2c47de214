#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <lwconfig/comments/model_comment.h>
#include <lwconfig/core/base/event.h>
#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/namespaces/namespace_def.h>

namespace lwconfig {

/// A model comment profile: model comments in order, without keys, for one namespace profile.
class ModelComments : public KeyedCollection<ModelComment>, public Counted<ModelComments> {
 public:
  static constexpr const char* kClassName = "ModelComments";

  std::string NamespaceProfile;  // the namespace profile whose element names the comments use
  std::string FileName;          // the file that `LoadFromFile` read last
  std::string Name;              // the key in `ModelCommentProfiles`
  std::string Description;       // description of the set
  bool IsPopulated = false;      // whether a `LoadFromFile` has finished

  /// Whether the set has changed since it was loaded or saved. Set by the callers: no change of the set or of
  /// a comment sets it.
  bool Dirty() const { return mDirty; }
  void SetDirty(bool dirty);
  /// Raised after setting `Dirty` has changed its value.
  Event<> DirtyStateChanged;

  /// The shared namespace profile that `NamespaceProfile` names; null where it is unknown. Error 91 while the
  /// shared namespace profiles have not been requested.
  std::shared_ptr<lwconfig::NamespaceDefs> NamespaceDefs() const;

  /// Replaces the comments by those of a `ModelCommentProfile` element, with its name and description, which
  /// are required: error 5 stops the load. So does a failing comment; the comments before it are kept.
  void Load(const XMLElement& e);
  /// Names the element `ModelCommentProfile` and writes the set with its comments to it.
  void Save(XMLElement& e) const;
  /// A set of copies. Only namespace profile, name and description are copied.
  std::shared_ptr<ModelComments> Clone() const;

  /// From and to the file `modelcomments.xml` of the configuration.
  void LoadGlobal();
  void SaveToGlobal();
  /// Replaces the set by that of a file; then it is populated and not dirty, without an event. A missing or
  /// malformed file has no "Name" and fails as `Load` does.
  void LoadFromFile(std::string_view FileName);
  /// Writes the set to a file and clears `Dirty`. `FileName` does not change.
  void SaveToFile(std::string_view FileName);

 private:
  bool mDirty = false;
};

}  // namespace lwconfig
