#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/keyed_list.h>

namespace lwconfig {

/// Splits one line of text, an attribute list or a command line, into names and values.
class ElementAttributes : public Counted<ElementAttributes> {
 public:
  static constexpr const char* kClassName = "ElementAttributes";

  /// Replaces the attributes by those of the text, or of the arguments of this process where it is empty;
  /// keeps them where those are empty too. Returns the new `Count`. More than 32,767 attributes are error 6,
  /// and the old ones are kept.
  ///
  /// A text with "=" is split at blanks. An attribute is `name=value`, or a text that is both name and value;
  /// a name loses one leading "-" or "/". Blanks inside double quotes do not split, and an unclosed quote
  /// extends to the end; three quotes in a row are one quote, which only a name keeps. Every blank terminates
  /// an attribute, so that two in a row enclose an empty one, and the end of the text adds an empty one.
  /// A text without "=" is one attribute, blanks included.
  std::int16_t Parse(std::string_view CommandLine = {});

  /// The name, or the value, of one attribute; empty where `Index` names none. A number other than 0, also
  /// as a text, is a position from 1. Any other text, and the number 0 as the text "0", is a name, letter
  /// case ignored, and the first attribute of that name counts. A text that only begins with a number other
  /// than 0 names none.
  std::string AttributeName(const ItemKey& Index) const;
  std::string AttributeData(const ItemKey& Index) const;
  /// The number of attributes.
  std::int16_t Count() const { return static_cast<std::int16_t>(mAttributes.size()); }

 private:
  struct Attribute {
    std::string Name;
    std::string Value;
  };
  const Attribute* Find(const ItemKey& index) const;

  std::vector<Attribute> mAttributes;
};

}  // namespace lwconfig
