#include <string>

#include <lwconfig/automation/published.h>
#include <lwconfig/checking/known_names.h>
#include <lwconfig/checking/options.h>
#include <lwconfig/core/base/nearest.h>
#include <lwconfig/core/files/application_values.h>

namespace lwconfig {

void CheckOptions(Inspection& inspection, Root& root) {
  NameSet templates;
  for (const auto& pageTemplate : *root.PageTemplates()) templates.Add(pageTemplate->Name);
  const auto check = [&](const AnyObject& set) {
    for (const AnyOption* option : set.Class->OptionsOf(set)->Options()) {
      if (set.Class->Find(option->Name())->Facts.Names != automation::NameOf::Template) continue;
      const std::string stored = GetAppValue(option->ValueName(), "", option->Section());
      if (stored.empty() || templates.Has(stored)) continue;
      const std::string path = std::string(set.Class->Name()) + "." + option->Name();
      Diagnostic problem;
      problem.Message = "the option " + path + " names the template \"" + stored + "\"; there is none";
      problem.Problem = Problem::UnknownTemplate;
      problem.ModelPath = path;
      inspection.Report(std::move(problem), [&] { return Nearest(stored, templates.Names()); });
    }
  };
  check(automation::ToAnyObject(root.VSNETOptions()));
  check(automation::ToAnyObject(root.VBOptions()));
  check(automation::ToAnyObject(root.LWCommenterOptions()));
}

}  // namespace lwconfig
