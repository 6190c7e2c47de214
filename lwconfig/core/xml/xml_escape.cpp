#include <algorithm>
#include <array>

#include <lwconfig/core/xml/internal/xml_escape.h>

namespace lwconfig {
namespace {

/// The bytes to escape: in character data, and in attribute values.
enum Place : unsigned char { kInText = 1, kInValue = 2 };

constexpr std::array<unsigned char, 256> kEscapedIn = [] {
  std::array<unsigned char, 256> escaped{};
  // Escape line breaks and tabs in values, which would read back as blanks, and a carriage return in a text,
  // which would read back as a line feed.
  for (std::size_t control = 0; control < ' '; ++control) escaped[control] = kInText | kInValue;
  escaped['\t'] = escaped['\n'] = kInValue;
  escaped['&'] = escaped['<'] = escaped['>'] = kInText | kInValue;
  escaped['"'] = kInValue;
  return escaped;
}();

void AppendReference(std::string& out, char c) {
  switch (c) {
    case '&':
      out += "&amp;";
      return;
    case '<':
      out += "&lt;";
      return;
    case '>':
      out += "&gt;";
      return;
    case '"':
      out += "&quot;";
      return;
    default:
      ((out += "&#") += std::to_string(static_cast<unsigned char>(c))) += ';';
  }
}

void AppendEscaped(std::string& out, std::string_view text, Place place) {
  std::size_t copied = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if ((kEscapedIn[static_cast<unsigned char>(text[i])] & place) == 0) continue;
    out.append(text, copied, i - copied);
    AppendReference(out, text[i]);
    copied = i + 1;
  }
  out.append(text, copied);
}

}  // namespace

void AppendAttribute(std::string& out, std::string_view name, std::string_view value) {
  ((out += ' ') += name) += "=\"";
  AppendEscaped(out, value, kInValue);
  out += '"';
}

void AppendText(std::string& out, std::string_view text) {
  // Escape a blank: a text of blanks alone would be taken for indentation.
  if (!text.empty() && text.find_first_not_of(" \t\r\n") == std::string_view::npos) {
    AppendReference(out, text[0]);
    text.remove_prefix(1);
  }
  AppendEscaped(out, text, kInText);
}

void AppendLineStart(std::string& out, std::size_t depth) {
  constexpr std::size_t kDeepestIndentation = 40;
  out += '\n';
  out.append(std::min(depth, kDeepestIndentation), '\t');
}

}  // namespace lwconfig
