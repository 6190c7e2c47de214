#include <tools/lwconfig/check/generator_names.h>
#include <tools/lwconfig/check/rules.h>
#include <tools/lwconfig/check/text_check.h>

#include <lwconfig/core/base/nearest.h>
#include <lwconfig/core/base/text.h>
#include <lwconfig/core/base/unicode.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/externaldocs/external_docs.h>

namespace lwconfig::tool {
namespace {

using Kinds = TextReference::Kinds;

/// The attributes of a template's settings in which the generator puts in texts.
struct TextAttribute {
  const char* Element;
  const char* Attribute;
  bool IsFileName;
};

constexpr TextAttribute kTextAttributes[] = {
    {"PageLayout", "TitleTemplate", true},  {"NodeDef", "NodeCaptionTemplate", false},
    {"NodeDef", "NodeCaptionText", false},  {"NodeDef", "FileNameTemplate", true},
    {"VariableDef", "DefaultValue", false},
};

/// Counts the lines and columns of places in a text that are asked for in order.
class TextPlaces {
 public:
  TextPlaces(const std::string& file, std::string_view text) : mText(text), mPlace{file, 1, 1} {}

  const FilePosition& At(std::size_t offset) {
    std::string_view between = mText.substr(mCounted, offset - mCounted);
    mCounted = offset;
    for (auto end = between.find('\n'); end != std::string_view::npos; end = between.find('\n')) {
      between.remove_prefix(end + 1);
      ++mPlace.Line;
      mPlace.Column = 1;
    }
    mPlace.Column += static_cast<std::int32_t>(CountCharacters(between));
    return mPlace;
  }

 private:
  std::string_view mText;
  std::size_t mCounted = 0;
  FilePosition mPlace;
};

}  // namespace

TextCheck::TextCheck(Inspection& inspection, const std::string& folder, const XMLElement& settings)
    : mInspection(inspection),
      mPhrases(inspection, folder, TemplateTexts::kPhrases),
      mScraps(inspection, folder, TemplateTexts::kScraps) {
  mPhrases.CompareLanguages(inspection);
  mScraps.CompareLanguages(inspection);
  for (const char* name : kGeneratorNames) mFilled.Add(name);
  for (const auto& names : {ExternalDocs::ObjectPlaceholders(), ExternalDocs::MemberPlaceholders()}) {
    for (const std::string& name : names) mFilled.Add(name);
  }
  for (const XMLElement child : settings.Children()) {
    if (child.Name() != "VariableDef") continue;
    if (const char* name = AttributeReader(child).Find("Name")) mFilled.Add(name);
  }
}

void TextCheck::CheckSettings(const XMLElement& settings) {
  ForEachElement(settings, [this](const XMLElement& e, const std::string& tag) {
    for (const auto& [element, attribute, isFileName] : kTextAttributes) {
      if (tag == element) CheckTemplate(e, attribute, isFileName);
    }
  });
}

void TextCheck::CheckTemplate(const XMLElement& e, const char* attribute, bool isFileName) {
  const char* text = AttributeReader(e).Find(attribute);
  if (text == nullptr) return;
  ForEachFault(text, [&](std::size_t, Problem problem, const std::string& message, const auto& suggest) {
    mInspection.Report(problem, e, attribute, message, suggest);
  });
  if (!isFileName) return;
  const auto pieces = Split(text, "%%");
  if (pieces.size() % 2 == 0) {
    mInspection.Report(
        Problem::UnknownPlaceholder, e, attribute,
        "a placeholder begins here and does not end: \"%%" + std::string(pieces.back()) + "\"");
  }
}

void TextCheck::CheckText(const std::string& file, std::string_view text) {
  TextPlaces places(file, text);
  ForEachFault(text,
               [&](std::size_t offset, Problem problem, const std::string& message, const auto& suggest) {
                 mInspection.Report(problem, places.At(offset), message, suggest);
               });
}

template <class Tell>
void TextCheck::ForEachFault(std::string_view text, Tell tell) {
  for (const TextReference& reference : FindTextReferences(text)) CheckReference(reference, tell);
}

template <class Tell>
void TextCheck::CheckReference(const TextReference& reference, Tell tell) {
  const std::string name(reference.Name);
  if (reference.Kind == Kinds::Placeholder) {
    if (mFilled.Has(name)) return;
    const std::string& slip = SlipOf(name);
    if (slip.empty()) return;
    tell(reference.Offset, Problem::UnknownPlaceholder, "nothing fills the placeholder \"%%" + name + "%%\"",
         [&] { return slip; });
    return;
  }
  const TemplateTexts& texts = reference.Kind == Kinds::Phrase ? mPhrases : mScraps;
  if (texts.Names().Has(name)) return;
  tell(reference.Offset, Problem::UnknownText,
       std::string("no language has the ") + texts.Kind().What + " \"" + name + "\"",
       [&] { return Nearest(name, texts.Names().Names()); });
}

const std::string& TextCheck::SlipOf(const std::string& name) {
  const auto [slip, isNew] = mSlips.try_emplace(name);
  if (!isNew) return slip->second;
  // One wrong letter, or two in a long name. More may make another name that the generator knows.
  constexpr std::size_t kLongName = 8;
  const std::size_t most = name.size() < kLongName ? 1 : 2;
  const std::string nearest = Nearest(name, mFilled.Names());
  if (!nearest.empty() && EditDistance(FoldCase(name), FoldCase(nearest)) <= most) slip->second = nearest;
  return slip->second;
}

}  // namespace lwconfig::tool
