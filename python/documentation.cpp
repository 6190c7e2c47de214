#include <algorithm>

#include <python/documentation.h>

#include <lwconfig/automation/contracts.h>
#include <lwconfig/automation/signature.h>

namespace lwconfig::python {

std::string MemberDocumentation(const automation::ClassInfo& info,
                                const automation::ClassInfo::Member& member) {
  std::string text = automation::SignatureText(member);
  const bool isReadOnly = member.Method == nullptr && member.Let == nullptr && member.Set == nullptr;
  if (isReadOnly) text += " (read-only)";
  const auto contract = automation::Contract(info.Name(), member.Name);
  if (!contract.empty()) text += "\n\n" + std::string(contract);
  if (std::ranges::any_of(automation::ParametersOf(member), &automation::ParameterInfo::IsReturned))
    text +=
        "\n\nReturns a tuple: the result, then each ByRef argument that is no object as the call left it.";
  return text;
}

std::string TextSignature(const automation::MemberInfo& slot) {
  std::string text = "($self";
  for (const auto& parameter : slot.Parameters())
    text += ", " + std::string(parameter.Name) + (parameter.IsOptional ? "=None" : "");
  return text + ")";
}

}  // namespace lwconfig::python
