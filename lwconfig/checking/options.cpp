#include <string>

#include <lwconfig/checking/known_names.h>
#include <lwconfig/checking/options.h>
#include <lwconfig/core/base/nearest.h>
#include <lwconfig/core/files/application_values.h>

namespace lwconfig {

void CheckOptions(Inspection& inspection, Root& root) {
  NameSet templates;
  for (const auto& pageTemplate : *root.PageTemplates()) templates.Add(pageTemplate->Name);
  const auto vb = root.VBOptions();
  const auto vsnet = root.VSNETOptions();
  const auto commenter = root.LWCommenterOptions();
  struct {
    const char* Set;
    const AnyOption& Option;
  } const options[] = {{vsnet->kClassName, vsnet->PreviewTemplate},
                       {vb->kClassName, vb->PreviewTemplate},
                       {vb->kClassName, vb->VBAPreviewTemplate},
                       {commenter->kClassName, commenter->PreviewTemplate}};
  for (const auto& [set, option] : options) {
    const std::string stored = GetAppValue(option.ValueName(), "", option.Section());
    if (stored.empty() || templates.Has(stored)) continue;
    const std::string path = std::string(set) + "." + option.Name();
    Diagnostic problem;
    problem.Message = "the option " + path + " names the template \"" + stored + "\"; there is none";
    problem.Problem = Problem::UnknownTemplate;
    problem.ModelPath = path;
    inspection.Report(std::move(problem), [&] { return Nearest(stored, templates.Names()); });
  }
}

}  // namespace lwconfig
