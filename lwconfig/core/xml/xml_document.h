#pragma once

#include <memory>
#include <string>

#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

class DiskFile;
class XMLObserver;

/// One XML document, parsed or to be written. No document types are processed, no entities beyond the five of
/// XML expanded and nothing is fetched; elements may nest to any depth.
class XMLDocument {
 public:
  XMLDocument();

  /// The document element; on a new document, or one whose text held none, an element without a name for the
  /// caller to name and fill. Never none.
  XMLElement RootElement();
  /// Replaces the document by the one in `Text`. False when the text is not well-formed: the document is then
  /// the part before the fault, without an element whose start tag is not finished. Elements taken from the
  /// document before stay what they were.
  bool LoadXML(std::string Text);
  /// As `LoadXML`. With `Option`, the text of an element keeps its white space. The text of an element with
  /// markup inside, such as HTML or a comment, is then as written: the markup stays, references are not
  /// resolved, and of a CDATA section the marks alone are left out, as in any text.
  /// `SourcePath` is the file that the text was read from, if any, which errors then name as their place.
  /// `observer`, if any, watches the document as long as it or an element of it lives.
  bool LoadXMLWithOption(std::string Text, bool Option, std::string SourcePath = {},
                         std::shared_ptr<XMLObserver> observer = nullptr);
  /// As `LoadXML` for the text of `file`, which errors then name as their place. A missing file is an empty
  /// text; error 70, 75 or another of the file layer when it exists and cannot be read.
  bool ReadFile(const DiskFile& file, std::shared_ptr<XMLObserver> observer = nullptr);
  /// What is wrong with the text read last; empty where it was well-formed.
  const std::string& ParseFailure() const;
  /// The place of that; without one where the text was well-formed.
  const FilePosition& ParseFailurePosition() const;
  /// The whole document as UTF-8 text with an XML declaration. Error 5 where the document element has no name
  /// yet.
  std::string XML() const;

 private:
  std::shared_ptr<XMLDocumentData> mData;
};

}  // namespace lwconfig
