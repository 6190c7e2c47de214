#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace lwconfig {

/// A name in a text of a template that the generator replaces.
struct TextReference {
  enum class Kinds { Placeholder, Phrase, Scrap };
  Kinds Kind;
  std::string_view Name;  // in the text
  std::size_t Offset;     // start of the reference
};

/// The references in a text, in order: placeholders `%%Name%%`, phrases `%%phrase.Name%%` and `<!--LW:Phrase
/// name="Name"-->`, and scraps in the same two ways. Names with blanks are not found, because two delimiters
/// may just as well be two percent signs each.
std::vector<TextReference> FindTextReferences(std::string_view text);

}  // namespace lwconfig
