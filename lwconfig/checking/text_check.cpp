#include <bit>

#include <lwconfig/checking/generator_names.h>
#include <lwconfig/checking/rules.h>
#include <lwconfig/checking/text_check.h>
#include <lwconfig/core/base/nearest.h>
#include <lwconfig/core/base/text.h>
#include <lwconfig/core/base/unicode.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/externaldocs/external_docs.h>

namespace lwconfig {
namespace {

using Kinds = TextReference::Kinds;

/// The attributes of a template's settings in which the generator inserts texts.
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

/// Counts lines and columns of places in a text that are requested in order.
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
  for (const char* name : kGeneratorNames) AddFilled(name);
  for (const auto& names : {ExternalDocs::ObjectPlaceholders(), ExternalDocs::MemberPlaceholders()}) {
    for (const std::string& name : names) AddFilled(name);
  }
  for (const XMLElement child : settings.Children()) {
    if (child.Name() != "VariableDef") continue;
    if (const char* name = AttributeReader(child).Find("Name")) AddFilled(name);
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

TextCheck::Spelling::Spelling(const std::string& name) : Folded(FoldCase(name)), Letters(0) {
  constexpr unsigned kBits = 64;
  for (const char c : Folded) Letters |= std::uint64_t{1} << static_cast<unsigned char>(c) % kBits;
}

void TextCheck::AddFilled(const std::string& name) {
  if (mFilled.Add(name)) mSpellings.emplace_back(name);
}

const std::string& TextCheck::SlipOf(const std::string& name) {
  const auto [slip, isNew] = mSlips.try_emplace(name);
  if (!isNew) return slip->second;
  // Accept one wrong letter, or two in a long name. With more, it may be another name that
  // the generator knows.
  constexpr std::size_t kShortName = 3;
  constexpr std::size_t kLongName = 8;
  if (name.size() < kShortName) return slip->second;
  std::size_t most = name.size() < kLongName ? 1 : 2;
  const Spelling wanted(name);
  for (std::size_t at = 0; at < mSpellings.size(); ++at) {
    const auto& [folded, letters] = mSpellings[at];
    // Compare the sets of letters first: a wrong letter removes one and adds one, and most names
    // differ in more.
    const bool isLike = static_cast<std::size_t>(std::popcount(letters ^ wanted.Letters)) <= 2 * most &&
                        folded.size() + most >= wanted.Folded.size() &&
                        wanted.Folded.size() + most >= folded.size();
    const std::size_t distance = isLike ? EditDistance(wanted.Folded, folded) : most + 1;
    if (distance > most) continue;
    slip->second = mFilled.Names()[at];
    most = distance - 1;  // only a nearer one is better
    if (most == 0) break;
  }
  return slip->second;
}

}  // namespace lwconfig
