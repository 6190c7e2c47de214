#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <tools/lwconfig/check/check.h>
#include <tools/lwconfig/check/rules.h>
#include <tools/lwconfig/configuration.h>

#include <lwconfig/core/application_values.h>
#include <lwconfig/core/disk_file.h>
#include <lwconfig/platform/registry.h>
#include <lwconfig/templates/phrases.h>

namespace lwconfig::tool {
namespace {

constexpr void (*kRules[])(const RuleInput&) = {CheckReferences, CheckNumbers,  CheckRepeatedNames,
                                                CheckTemplate,   CheckPatterns, CheckPlaceholders};

bool IsFolder(const std::string& path) {
  DiskFile folder;
  folder.SetFolder(path);
  return folder.IsFolder();
}

class Checker {
 public:
  explicit Checker(Report& report)
      : mReport(report),
        mInspection([&report](const Diagnostic& problem) { report.Add(problem); },
                    [this](const std::string& file, const XMLElement& root) { Inspect(file, root); }) {}

  void Run(const std::string& folder, Reporter& reporter) {
    const bool isRegistered = CheckRegistry();
    try {
      if (isRegistered || !folder.empty()) CheckParts(Configuration(folder, reporter).Root());
    } catch (const Error& failure) {
      if (failure.Number() == kPathNotFound) {
        mInspection.Tell(Problem::MissingFolder, failure.Position(), failure.Description());
      } else {
        mInspection.Tell(failure);
      }
    }
    mReport.Close(mInspection);
  }

 private:
  void Inspect(const std::string& file, const XMLElement& root) {
    // Tagged comments refer to each other, also to those in the file that is read later.
    if (mPart == Part::Comments) {
      mComments.emplace_back(file, root);
    } else {
      RunRules(file, root);
    }
  }

  void RunRules(const std::string& file, const XMLElement& root) {
    const RuleInput input{mInspection, mContext, mPart, file, root};
    for (const auto rule : kRules) rule(input);
  }

  /// Looks at both hives, whether or not the configuration needs them. False where the machine's, which names
  /// the configuration folder, cannot be read.
  bool CheckRegistry() {
    bool isMachineRead = false;
    for (const auto hive : {platform::Hive::CurrentUser, platform::Hive::LocalMachine}) {
      isMachineRead = false;
      try {
        platform::Host<platform::Registry>().Read(hive, kProductKey, kFolderValue);
        isMachineRead = true;
      } catch (const platform::RegistryFormatError& damage) {
        mInspection.Tell(
            Problem::DamagedRegistry,
            {platform::Host<platform::Files>().ProductPath(damage.File), damage.Line, damage.Column},
            std::string("the registry file is damaged: ") + damage.what());
      } catch (const std::system_error& failure) {
        mInspection.Tell(Problem::UnreadableFile, {}, failure.what());
      }
    }
    return isMachineRead;
  }

  /// Whether a folder of the configuration is there; tells if not.
  bool Has(const std::string& folder, const char* consequence) {
    if (IsFolder(folder)) return true;
    mInspection.Tell(Problem::MissingFolder, {folder, 0, 0},
                     std::string("there is no such folder; ") + consequence);
    return false;
  }

  /// Loads one part. What does not come with a place in a file is told with that of `folder`.
  template <class Load>
  void Check(Part part, const std::string& folder, Load load) {
    mPart = part;
    RunStep(load, [&] { return FilePosition{folder, 0, 0}; });
  }

  /// What others refer to comes first.
  void CheckParts(Root& root) {
    const std::string folder = ConfigPath();
    if (!Has(folder, "nothing is loaded")) return;
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
    for (const auto& pageTemplate : *root.PageTemplates()) {
      for (const char* texts : {"Phrases", "HTMLScraps"}) {
        Check(Part::Texts, pageTemplate->RootFolder + texts, [&] { CheckTexts(*pageTemplate, texts); });
      }
    }
  }

  void NoteNamespaces(Root& root) {
    for (const auto& profile : *root.NamespaceProfiles()) {
      mContext.Names.Profiles.Add(profile->Name);
      const auto definitions = profile->AllNamespaceDefs();
      for (const auto& definition : *definitions) mContext.Names.CodeElements.Add(definition->Name);
    }
  }

  /// Every file of phrases or scraps of a template.
  static void CheckTexts(const PageTemplate& pageTemplate, const char* folder) {
    LanguageTexts texts(folder);
    for (const std::string& language : texts.Languages(pageTemplate.RootFolder))
      texts.Load(pageTemplate.RootFolder, language);
  }

  Report& mReport;
  CheckContext mContext;
  Part mPart = Part::Namespaces;
  std::vector<std::pair<std::string, XMLElement>> mComments;  // the files of tagged comments
  Inspection mInspection;
};

}  // namespace

Report CheckConfiguration(const std::string& folder, Reporter& reporter) {
  Report report;
  Checker(report).Run(folder, reporter);
  return report;
}

}  // namespace lwconfig::tool
