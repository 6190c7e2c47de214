#include <lwconfig/core/base/text.h>
#include <lwconfig/core/xml/string_tools.h>

namespace lwconfig {

std::string StringTools::JoinCollection(const Collection& collection, std::string_view separator) {
  std::string joined;
  bool first = true;
  for (const auto& item : collection) {
    if (!first) joined += separator;
    joined += item;
    first = false;
  }
  return joined;
}

std::string StringTools::Piece(std::string_view text, std::string_view separator, std::int32_t index) {
  const auto pieces = Split(text, separator);
  if (index < 1 || static_cast<std::size_t>(index) > pieces.size()) return {};
  return std::string(pieces[static_cast<std::size_t>(index - 1)]);
}

std::shared_ptr<Collection> StringTools::SplitToCollection(std::string_view text,
                                                           std::string_view separator) {
  auto pieces = std::make_shared<Collection>();
  for (const auto piece : Split(text, separator)) pieces->Add(std::string(piece));
  return pieces;
}

std::string StringTools::ExpandPlaceholders(std::string_view Format, const Collection& Values,
                                            std::string_view delimiter) {
  std::string expanded;
  std::size_t copied = 0;
  std::size_t open = delimiter.empty() ? std::string_view::npos : Format.find(delimiter);
  while (open != std::string_view::npos) {
    const auto close = Format.find(delimiter, open + delimiter.size());
    if (close == std::string_view::npos) break;
    const auto name = Format.substr(open + delimiter.size(), close - open - delimiter.size());
    if (const auto* value = Values.Item(name)) {
      expanded += Format.substr(copied, open - copied);
      expanded += *value;
      copied = close + delimiter.size();
      open = Format.find(delimiter, copied);
    } else {
      open = close;  // the closing delimiter may open the next placeholder
    }
  }
  return expanded += Format.substr(copied);
}

}  // namespace lwconfig
