#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/checking/known_names.h>
#include <lwconfig/checking/template_texts.h>
#include <lwconfig/checking/text_references.h>
#include <lwconfig/core/loading/inspection.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

/// Reports references to nothing in the texts of a template: phrases and scraps that no language
/// has, and placeholders that are a misspelling of a known one. Only the generator knows whether it
/// fills other placeholders.
class TextCheck {
 public:
  /// Loads the phrases and scraps below the template's folder and compares their languages. `settings` is the
  /// root element of its `config.xml`. The inspection must outlive the object.
  TextCheck(Inspection& inspection, const std::string& folder, const XMLElement& settings);

  void CheckSettings(const XMLElement& settings);
  void CheckText(const std::string& file, std::string_view text);

 private:
  /// Calls `tell(offset, problem, message, suggest)` for each reference to nothing.
  template <class Tell>
  void ForEachFault(std::string_view text, Tell tell);
  template <class Tell>
  void CheckReference(const TextReference& reference, Tell tell);
  void CheckTemplate(const XMLElement& e, const char* attribute, bool isFileName);
  /// The placeholder of which an unknown one is a misspelling; empty where there is none. A page can have as
  /// many of these as it has words.
  const std::string& SlipOf(const std::string& name);
  void AddFilled(const std::string& name);

  Inspection& mInspection;
  const TemplateTexts mPhrases;
  const TemplateTexts mScraps;
  /// A name in one letter case, and a bit for each of its letters.
  struct Spelling {
    std::string Folded;
    std::uint64_t Letters;
    explicit Spelling(const std::string& name);
  };
  NameSet mFilled;                            // the placeholders that are known to be filled
  std::vector<Spelling> mSpellings;           // their signatures, in the same order
  std::map<std::string, std::string> mSlips;  // the results of `SlipOf`
};

}  // namespace lwconfig
