#pragma once

#include <memory>
#include <string>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

/// The formats of a link into external documentation, with placeholders in %%. An empty format is none.
class ExternalLink : public Counted<ExternalLink> {
 public:
  static constexpr const char* kClassName = "ExternalLink";

  std::string HTMLHelp1LinkFormat;  // complete markup of a link in HTML Help 1
  std::string Help2LinkFormat;      // complete markup of a link in Help 2
  std::string URLFormat;            // address of the page, without markup

  /// Reads the formats from an element of any name; an absent format keeps its value.
  void Load(const XMLElement& e);
  /// Writes all stored properties to the element, which the caller has named.
  void Save(XMLElement& e) const;
  /// Copies the formats into `Target`. Error 91 where it is null.
  void Clone(const std::shared_ptr<ExternalLink>& Target) const;
};

}  // namespace lwconfig
