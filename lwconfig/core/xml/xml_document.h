#pragma once

#include <memory>
#include <string>

#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

class DiskFile;
class XMLObserver;

/// An XML document, parsed or to be written. Document types are not processed, no entities beyond the five of
/// XML are expanded, nothing is fetched. Elements may nest to any depth.
class XMLDocument {
 public:
  XMLDocument();

  /// The document element; never null. In a new document, or after a text without an element, it has no name
  /// yet: the caller names and fills it.
  XMLElement RootElement();
  /// Replaces the document by the one in `Text`. False when the text is not well-formed: the document then
  /// holds the part before the fault, without an element whose start tag is not finished. Elements taken from
  /// the previous document stay valid and unchanged.
  bool LoadXML(std::string Text);
  /// As `LoadXML`. With `Option`, the text of an element keeps its white space. The text of an element with
  /// markup inside, such as HTML or a comment, is then as written: the markup stays, references are not
  /// resolved, and only the marks of CDATA sections are left out, as in any text. `SourcePath` is the file of
  /// the text, if any; errors name it as their place. `observer`, if any, watches the document as long as it
  /// or an element of it lives.
  bool LoadXMLWithOption(std::string Text, bool Option, std::string SourcePath = {},
                         std::shared_ptr<XMLObserver> observer = nullptr);
  /// As `LoadXML` for the text of `file`; errors name it as their place. A missing file is an empty text;
  /// error 70, 75 or another of the file layer when it exists and cannot be read.
  bool ReadFile(const DiskFile& file, std::shared_ptr<XMLObserver> observer = nullptr);
  /// The description of the fault in the text last read; empty where it was well-formed.
  const std::string& ParseFailure() const;
  /// The place of that fault; an empty place where the text was well-formed.
  const FilePosition& ParseFailurePosition() const;
  /// The whole document as UTF-8 text with an XML declaration. Error 5 where the document element has
  /// no name yet.
  std::string XML() const;

 private:
  std::shared_ptr<XMLDocumentData> mData;
};

}  // namespace lwconfig
