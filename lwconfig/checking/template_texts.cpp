#include <algorithm>
#include <utility>

#include <lwconfig/checking/template_texts.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/templates/phrases.h>

namespace lwconfig {

TemplateTexts::TemplateTexts(const Inspection& inspection, const std::string& rootFolder, const Sort& kind)
    : mKind(kind) {
  for (const std::string& name : LanguageTexts(kind.Folder).Languages(rootFolder)) {
    Language language{name, DiskFile(rootFolder + kind.Folder, name, "txt").FullPath(), {}};
    LanguageTexts texts(kind.Folder);
    RunStep([&] { texts.Load(rootFolder, name); }, [&] { return FilePosition{language.File, 0, 0}; });
    if (!texts.Texts()) continue;
    for (std::int32_t at = 1; at <= texts.Texts()->Count(); ++at) {
      language.Names.Add(texts.Texts()->KeyAt(at));
      mNames.Add(texts.Texts()->KeyAt(at));
    }
    if (inspection.IsSound(language.File)) mCompared.push_back(std::move(language));
  }
}

void TemplateTexts::CompareLanguages(Inspection& inspection) const {
  for (const Language& language : mCompared) {
    for (const std::string& name : mNames.Names()) {
      if (language.Names.Has(name)) continue;
      const auto other =
          std::ranges::find_if(mCompared, [&](const Language& any) { return any.Names.Has(name); });
      if (other == mCompared.end()) continue;
      inspection.Report(
          Problem::UntranslatedText, {language.File, 0, 0},
          std::string("there is no ") + mKind.What + " \"" + name + "\"; " + other->Name + " has it");
    }
  }
}

}  // namespace lwconfig
