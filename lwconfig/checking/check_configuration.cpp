#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <system_error>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include <lwconfig/checking/check_configuration.h>
#include <lwconfig/checking/model_path.h>
#include <lwconfig/checking/options.h>
#include <lwconfig/checking/rules.h>
#include <lwconfig/checking/text_check.h>
#include <lwconfig/configuration_scope.h>
#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/platform/registry.h>
#include <lwconfig/root.h>

namespace lwconfig {
namespace {

constexpr void (*kRules[])(const RuleInput&) = {CheckRootElement, CheckReferences,    CheckNumbers,
                                                CheckEmptyNames,  CheckRepeatedNames, CheckTemplate,
                                                CheckPatterns,    CheckPlaceholders};

bool IsFolder(const std::string& path) {
  DiskFile folder;
  folder.SetFolder(path);
  return folder.IsFolder();
}

/// Drops the shared objects at the start and at the end.
struct FreshObjects {
  FreshObjects() { ResetSharedSlots(); }
  ~FreshObjects() { ResetSharedSlots(); }
  FreshObjects(const FreshObjects&) = delete;
  FreshObjects& operator=(const FreshObjects&) = delete;
};

class Checker {
 public:
  Checker()
      : mInspection(
            [this](const Diagnostic& problem) { mResult.Problems.push_back(problem); },
            [this](const std::string& file, const XMLElement& root) { Inspect(file, root); },
            [this](const std::string& file, std::string_view text) { mTexts.emplace_back(file, text); },
            ModelPathOf) {}

  CheckResult Run(const std::string& folder) {
    mHasOptions = CanRead(Hive::CurrentUser);
    const bool isRegistered = CanRead(Hive::LocalMachine);  // its hive names the configuration folder
    if (!folder.empty()) {
      const ConfigurationScope scope(folder);
      CheckParts();
    } else if (isRegistered) {
      if (ConfigPath().empty()) throw Error(kPathNotFound, "No configuration is registered");
      const FreshObjects fresh;
      CheckParts();
    }
    mResult.Files = mInspection.Files().size();
    for (Diagnostic& rest : mInspection.Rests()) mResult.Problems.push_back(std::move(rest));
    SortProblems();
    return std::move(mResult);
  }

 private:
  void Inspect(const std::string& file, const XMLElement& root) {
    // Tagged comments refer to each other, across both files.
    if (mPart == Part::Comments) {
      mComments.emplace_back(file, root);
    } else {
      RunRules(file, root);
    }
    if (mPart == Part::Templates) {
      const std::string folder = DiskFile(file).FolderPath();
      Check(Part::Texts, folder, [&] { InspectTexts(folder, root); });
      mPart = Part::Templates;
    }
  }

  void RunRules(const std::string& file, const XMLElement& root) {
    const RuleInput input{mInspection, mContext, mPart, file, root};
    for (const auto rule : kRules) rule(input);
  }

  /// Whether a hive of the registry can be read, needed or not; reports it if not.
  bool CanRead(Hive hive) {
    try {
      platform::Host<platform::Registry>().Read(hive, kProductKey, kConfigPathValue);
      return true;
    } catch (const RegistryFormatError& damage) {
      mInspection.Report(
          Problem::DamagedRegistry,
          {platform::Host<platform::Files>().ProductPath(damage.File), damage.Line, damage.Column},
          std::string("the registry file is damaged: ") + damage.what());
    } catch (const std::system_error& failure) {
      mInspection.Report(Problem::UnreadableFile, {}, failure.what());
    }
    return false;
  }

  /// Whether a folder of the configuration exists; reports it if not.
  bool Has(const std::string& folder, const char* consequence) {
    if (IsFolder(folder)) return true;
    mInspection.Report(Problem::MissingFolder, {folder, 0, 0},
                       std::string("there is no such folder; ") + consequence);
    return false;
  }

  void SortProblems() {
    std::unordered_map<std::string, std::size_t> order;
    for (const std::string& file : mInspection.Files()) order.emplace(file, order.size() + 1);
    const auto key = [&](const Diagnostic& problem) {
      const auto file = order.find(problem.Position.File);
      return std::tuple(file != order.end() ? file->second : 0, problem.Count > 1, problem.Position.Line,
                        problem.Position.Column);
    };
    std::ranges::stable_sort(mResult.Problems, {}, key);
  }

  /// Loads one part. A failure without a place in a file is reported with the place `folder`.
  template <class Load>
  void Check(Part part, const std::string& folder, Load load) {
    mPart = part;
    RunStep(load, [&] { return FilePosition{folder, 0, 0}; });
  }

  /// Load what others refer to first.
  void CheckParts() {
    Root root;
    const std::string folder = ConfigPath();
    if (!Has(folder, "nothing is loaded")) return;
    Check(Part::Comments, folder, [&] { TellFoldersForFiles(folder); });
    if (Has(folder + "\\Namespaces", "no namespace profiles are loaded")) {
      Check(Part::Namespaces, folder, [&] { root.NamespaceProfiles(); });
    } else {
      SharedSlot<NamespaceProfiles>::Set(std::make_shared<NamespaceProfiles>());
    }
    Check(Part::PlugIns, folder, [&] { root.PlugIns(); });
    NoteNamespaces(root);
    for (const auto& plugIn : *root.PlugIns()) mContext.Names.PlugIns.Add(plugIn->Name);
    Check(Part::Comments, folder, [&] { root.TaggedCommentDefs(); });
    for (const auto& comment : *root.TaggedCommentDefs()) mContext.Names.Comments.Add(comment->TagIdentifier);
    for (const auto& [file, comments] : mComments) RunRules(file, comments);
    Check(Part::ModelComments, folder, [&] {
      if (DiskFile(folder + "\\modelcomments.xml").Exists()) ModelComments().LoadGlobal();
      root.ModelCommentProfiles();
    });
    Check(Part::CommentFiles, folder, [&] { root.CommentFileLocations(); });
    Check(Part::Languages, folder, [&] { root.Languages(); });
    Check(Part::ExternalDocs, folder, [&] { root.ExternalDocs(); });
    if (!Has(folder + "\\Templates", "no templates are loaded")) return;
    Check(Part::Templates, folder, [&] { root.PageTemplates(); });
    for (const auto& pageTemplate : *root.PageTemplates())
      Check(Part::Texts, pageTemplate->RootFolder, [&] { InspectLayouts(*pageTemplate); });
    if (mHasOptions) RunStep([&] { CheckOptions(mInspection, root); }, [] { return FilePosition(); });
  }

  /// Loading takes these files for missing.
  void TellFoldersForFiles(const std::string& folder) {
    for (const char* name : {"taggedcomments_standard.xml", "taggedcomments_custom.xml", "modelcomments.xml",
                             "CommentFileLocations.xml", "languages.xml", "ExternalDocs.xml"}) {
      const std::string path = folder + "\\" + name;
      if (IsFolder(path))
        mInspection.Report(Problem::MissingConfig, {path, 0, 0},
                           "this is a folder, which is not read as a file");
    }
  }

  void NoteNamespaces(Root& root) {
    for (const auto& profile : *root.NamespaceProfiles()) {
      mContext.Names.Profiles.Add(profile->Name);
      const auto definitions = profile->AllNamespaceDefs();
      for (const auto& definition : *definitions) mContext.Names.CodeElements.Add(definition->Name);
    }
  }

  /// The phrases and scraps of a template, and the references in them and in its settings.
  void InspectTexts(const std::string& folder, const XMLElement& settings) {
    mTexts.clear();
    TextCheck& check = mTextChecks.try_emplace(folder, mInspection, folder, settings).first->second;
    check.CheckSettings(settings);
    for (const auto& [file, text] : mTexts) check.CheckText(file, text);
  }

  /// The references in the pages of a template.
  void InspectLayouts(const PageTemplate& pageTemplate) {
    const auto check = mTextChecks.find(pageTemplate.RootFolder);
    if (check == mTextChecks.end()) return;
    for (const auto& layout : *pageTemplate.PageLayouts()) {
      const DiskFile file(pageTemplate.RootFolder + layout->FileName);
      if (!IsText(*layout) || !file.Exists()) continue;
      mInspection.BeginFile(file.FullPath());
      RunStep([&] { check->second.CheckText(file.FullPath(), file.ReadAll()); },
              [&] {
                return FilePosition{file.FullPath(), 0, 0};
              });
    }
  }

  /// Every file in the folder of a template is a layout, even a picture.
  static bool IsText(const PageLayout& layout) {
    const std::string extension = DiskFile(layout.FileName).Extension();
    return layout.IsHTMLHelpProjectFile() || EqualIgnoringCase(extension, "html") ||
           EqualIgnoringCase(extension, "htm");
  }

  CheckResult mResult;
  CheckContext mContext;
  Part mPart = Part::Namespaces;
  bool mHasOptions = false;
  std::vector<std::pair<std::string, XMLElement>> mComments;  // the files of tagged comments
  std::map<std::string, TextCheck> mTextChecks;               // of templates, by folder
  std::vector<std::pair<std::string, std::string>> mTexts;  // the phrases and scraps of one template, by file
  Inspection mInspection;
};

}  // namespace

bool CheckResult::HasErrors() const {
  return std::ranges::any_of(Problems, [](const Diagnostic& problem) {
    return KindOf(problem.Problem).Severity == Severity::Error;
  });
}

CheckResult CheckConfiguration(const std::string& folder) {
  return Checker().Run(folder);
}

}  // namespace lwconfig
