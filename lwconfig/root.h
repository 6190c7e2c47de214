#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <lwconfig/comments/comment_file_locations.h>
#include <lwconfig/comments/model_comment_profiles.h>
#include <lwconfig/comments/tagged_comment_defs.h>
#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/loading/shared_slots.h>
#include <lwconfig/externaldocs/external_docs.h>
#include <lwconfig/namespaces/language.h>
#include <lwconfig/namespaces/namespace_profiles.h>
#include <lwconfig/namespaces/plug_in.h>
#include <lwconfig/options/ide_options.h>
#include <lwconfig/options/lw_commenter_options.h>
#include <lwconfig/options/spelling_options.h>
#include <lwconfig/options/vb_options.h>
#include <lwconfig/options/vsnet_options.h>
#include <lwconfig/templates/page_templates.h>

namespace lwconfig {

/// The entry point to the configuration. Every `Root` of the process returns the same objects, created and
/// loaded on first request. After the last `Root` is destroyed, the next one loads afresh. An error during
/// the load of a collection is rethrown; the part that was loaded stays shared, and the next request returns
/// it. Nothing is saved automatically. For use from one thread.
class Root : public Counted<Root> {
 public:
  static constexpr const char* kClassName = "Root";

  /// The sources of external documentation.
  std::shared_ptr<lwconfig::ExternalDocs> ExternalDocs();
  /// The programming languages; none where their file is missing.
  std::shared_ptr<lwconfig::Languages> Languages();
  /// The plug-ins of the configuration.
  std::shared_ptr<lwconfig::PlugIns> PlugIns();
  /// The model comment profiles.
  std::shared_ptr<lwconfig::ModelCommentProfiles> ModelCommentProfiles();
  /// The catalogue of page templates. Loads the namespace profiles first where they are not loaded yet.
  std::shared_ptr<lwconfig::PageTemplates> PageTemplates();
  /// The namespace profiles.
  std::shared_ptr<lwconfig::NamespaceProfiles> NamespaceProfiles();
  /// The types of tagged comment.
  std::shared_ptr<lwconfig::TaggedCommentDefs> TaggedCommentDefs();
  /// The comment files of .NET assemblies.
  std::shared_ptr<lwconfig::CommentFileLocations> CommentFileLocations();

  /// Makes the given object the shared one, until the next reset or replacement. Error 91 for none.
  void ReplaceTaggedCommentDefs(std::shared_ptr<lwconfig::TaggedCommentDefs> replacement);
  void ReplaceModelCommentProfiles(std::shared_ptr<lwconfig::ModelCommentProfiles> replacement);
  void ReplaceExternalDocs(std::shared_ptr<lwconfig::ExternalDocs> replacement);
  void ReplaceCommentFileLocations(std::shared_ptr<lwconfig::CommentFileLocations> replacement);

  /// The user's options. They cache no values: each read and write accesses the registry.
  std::shared_ptr<lwconfig::VSNETOptions> VSNETOptions();
  std::shared_ptr<lwconfig::VBOptions> VBOptions();
  std::shared_ptr<lwconfig::LWCommenterOptions> LWCommenterOptions();
  std::shared_ptr<lwconfig::IDEOptions> IDEOptions();
  std::shared_ptr<lwconfig::SpellingOptions> SpellingOptions();

  /// The templates folder; "\Templates" while no configuration is registered.
  std::string TemplatePath() const;
  /// The installation folder as registered, or empty.
  std::string AppPath() const;
  /// The folder of the newest .NET Framework version, with trailing backslash.
  std::string DotNetPath() const;
  /// The configuration folder without trailing backslash, or empty.
  std::string ConfigPath() const;

  /// Drops every shared object, so that the next request loads afresh. Holders of an object keep it.
  void ResetLWConfig();

  /// The first template, in catalogue order, that lists the namespace profile and, unless `Supports` is
  /// empty, whose item types joined by "," contain it; both without regard to letter case. Null where
  /// there is none.
  std::shared_ptr<PageTemplate> GetDefaultTemplate(std::string_view NamespaceProfile,
                                                   std::string_view Supports = {});

  /// The toolbar style of tools without their own: shared by every `Root` of the process, in memory only.
  LWToolBarStyleEnum DefaultToolbarStyle() const;
  void SetDefaultToolbarStyle(LWToolBarStyleEnum style);
  /// A flag for clients, shared by every `Root` of the process; a reset does not change it.
  bool ReloadFlag() const;
  void SetReloadFlag(bool flag);

 private:
  LiveRoot mLive;
};

}  // namespace lwconfig
