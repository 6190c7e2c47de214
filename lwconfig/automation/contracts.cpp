#include <algorithm>
#include <string>

#include <lwconfig/automation/contracts.h>
#include <lwconfig/automation/internal/text_tables.h>

namespace lwconfig::automation {
namespace {

std::string_view Find(std::span<const TextRow> rows, std::string_view key) {
  const auto found =
      std::lower_bound(rows.begin(), rows.end(), key,
                       [](const TextRow& row, std::string_view wanted) { return row.Key < wanted; });
  return found != rows.end() && found->Key == key ? found->Text : std::string_view();
}

}  // namespace

std::string_view Contract(std::string_view owner, std::string_view member) {
  if (member.empty()) return Find(ContractRows(), owner);
  return Find(ContractRows(), std::string(owner) + "." + std::string(member));
}

std::string_view Summary(std::string_view contract) {
  const auto end = std::min(contract.find(". "), contract.find(".\n"));
  return end == std::string_view::npos ? contract : contract.substr(0, end + 1);
}

std::string_view Identity(std::string_view name) {
  return Find(IdentityRows(), name);
}

}  // namespace lwconfig::automation
