#pragma once

#include <memory>
#include <string>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/object_reference.h>
#include <lwconfig/core/xml/xml_element.h>
#include <lwconfig/externaldocs/external_link.h>

namespace lwconfig {

/// One source of external documentation: the names it documents and the formats of links to its pages.
class ExternalDoc : public Counted<ExternalDoc> {
 public:
  static constexpr const char* kClassName = "ExternalDoc";

  /// Pattern of the names documented, with letter case: "?" is any one character, "*" any run of them, "#" a
  /// digit, "[a-z]" one of a list, "[!a-z]" one that is not. The key in `ExternalDocs`.
  std::string NamespaceName;
  /// Formats of links to classes and other objects.
  Owned<ExternalLink> ClassLink = std::make_shared<ExternalLink>();
  /// Formats of links to their members.
  Owned<ExternalLink> DefaultMemberLink = std::make_shared<ExternalLink>();

  // The formats of `ClassLink`. Error 91 while that is null.
  const std::string& URLFormat() const { return ClassLink->URLFormat; }
  void SetURLFormat(std::string format) { ClassLink->URLFormat = std::move(format); }
  const std::string& HTMLHelp1LinkFormat() const { return ClassLink->HTMLHelp1LinkFormat; }
  void SetHTMLHelp1LinkFormat(std::string format) { ClassLink->HTMLHelp1LinkFormat = std::move(format); }
  const std::string& Help2LinkFormat() const { return ClassLink->Help2LinkFormat; }
  void SetHelp2LinkFormat(std::string format) { ClassLink->Help2LinkFormat = std::move(format); }

  /// Reads an `ExternalDoc` element. "Namespace" is required: error 5 stops the load where it is missing. The
  /// first child element, whatever its name, holds the default member link.
  void Load(const XMLElement& e);
  /// Writes all stored properties to the element, which the caller has named.
  void Save(XMLElement& e) const;
  /// A copy with its own links.
  std::shared_ptr<ExternalDoc> Clone() const;
};

}  // namespace lwconfig
