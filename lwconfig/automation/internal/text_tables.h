#pragma once

#include <span>
#include <string_view>

namespace lwconfig::automation {

/// The tables that `cmake/contracts.py` writes, in the order of their keys.
struct TextRow {
  std::string_view Key;
  std::string_view Text;
};

std::span<const TextRow> ContractRows();
std::span<const TextRow> IdentityRows();

}  // namespace lwconfig::automation
