#include <algorithm>
#include <exception>

#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/loading/diagnostics.h>
#include <lwconfig/core/xml/internal/xml_data.h>

namespace lwconfig {
namespace {

/// The distance within which two attributes of one name are noticed, so that thousands of attributes do not
/// take quadratic time.
constexpr std::ptrdiff_t kMostCompared = 100;

/// Fold letter case byte by byte: the names that are looked up are ASCII.
bool NameEquals(const char* name, const char* wanted) {
  for (; *wanted != '\0'; ++name, ++wanted) {
    if (*name != *wanted && AsciiLower(*name) != AsciiLower(*wanted)) return false;
  }
  return *name == '\0';
}

}  // namespace

std::string RepeatedAttributeMessage(std::string_view name, std::string_view element) {
  return std::string("the attribute \"").append(name).append("\" is repeated in <").append(element) +
         ">; only the first counts";
}

AttributeReader::AttributeReader(const XMLElement& e) : mElement(e) {
  std::size_t count = 0;
  for (pugi::xml_attribute attribute = pugi::xml_node(e.Node()).first_attribute(); attribute;
       attribute = attribute.next_attribute()) {
    const Attribute read{attribute.name(), attribute.value()};
    if (count == kUsualCount) mMany.assign(mUsual, mUsual + kUsualCount);
    if (count < kUsualCount) {
      mUsual[count] = read;
    } else {
      mMany.push_back(read);
    }
    ++count;
  }
  mFirst = mMany.empty() ? mUsual : mMany.data();
  mEnd = mFirst + count;
  mNext = mFirst;
  if (e.mDocument->Observer) {
    e.mDocument->NoteLook(pugi::xml_node(e.Node()).name());
    mNext = mEnd;  // sends every look-up to `Search`, which reports it
  }
}

void AttributeReader::Skip(const char* name) const {
  if (!mElement.mDocument->Observer) return;
  for (const Attribute* attribute = mFirst; attribute != mEnd; ++attribute) {
    if (NameEquals(attribute->Name, name)) return mElement.mDocument->NoteLook(attribute->Name);
  }
}

const char* AttributeReader::Search(const char* name) {
  const auto matches = [name](const Attribute& attribute) { return NameEquals(attribute.Name, name); };
  const Attribute* found = std::find_if(mFirst, mEnd, matches);
  const XMLDocumentData& document = *mElement.mDocument;
  if (found == mEnd) {
    if (document.Observer) {
      document.Observer->Absent(XMLObserver::NameKind::Attribute, pugi::xml_node(mElement.Node()).name(),
                                name);
    }
    return nullptr;
  }
  document.NoteLook(found->Name);
  if (!document.Observer) mNext = found + 1;
  ++mFound;
  return found->Value;
}

AttributeReader::~AttributeReader() {
  // Each name is looked up once, so a repeated one is left over. An observer of the document
  // reports it itself.
  if (mFound < mEnd - mFirst && !mElement.mDocument->Observer && std::uncaught_exceptions() == 0)
    ReportRepeated();
}

void AttributeReader::ReportRepeated() const {
  if (!IsWanted(Problem::RepeatedAttribute)) return;
  for (const Attribute* attribute = mFirst; attribute != mEnd; ++attribute) {
    const Attribute* from = attribute - std::min(attribute - mFirst, kMostCompared);
    const bool isRepeated = std::any_of(from, attribute, [attribute](const Attribute& other) {
      return EqualIgnoringCase(other.Name, attribute->Name);
    });
    if (!isRepeated) continue;
    Report(Problem::RepeatedAttribute, mElement, attribute->Name,
           RepeatedAttributeMessage(attribute->Name, mElement.Name()));
  }
}

void AttributeReader::ReportIgnored(const char* name, const char* text, const char* problem) const {
  Report(Problem::IgnoredValue, mElement, name,
         std::string("the attribute \"") + name + "\" is ignored: \"" + text + "\" " + problem);
}

void AttributeReader::ReportDoubt(const char* name, const char* text, std::string_view taken,
                                  const char* doubt) const {
  if (!IsWanted(Problem::DoubtfulValue)) return;
  const std::string message = std::string("the attribute \"") + name + "\" is taken as " +
                              std::string(taken) + ": \"" + text + "\" " + doubt;
  Report(Problem::DoubtfulValue, mElement, name, message, [&] {
    if (taken == "False") return std::string(EqualIgnoringCase(text, "True") ? "True" : "");
    return std::string(taken == "0" ? "" : taken);
  });
}

const char* AttributeReader::Required(const char* name) {
  const char* text = Find(name);
  if (text == nullptr) Fail(kInvalidCall, name, "it is missing");
  return text;
}

void AttributeReader::Fail(std::int32_t number, const char* name, std::string_view found) const {
  const std::string element = mElement.Name();
  std::string description = element.empty() ? "An element is missing that has" : "<" + element + "> needs";
  description.append(" the attribute \"").append(name).append("\"");
  if (!element.empty()) description.append(": ").append(found);
  if (!mElement.ParseFailure().empty()) description += " (" + mElement.ParseFailure() + ")";
  if (ContinuesAfterFailure()) {
    // An element that is absent altogether was reported before.
    if (element.empty()) return;
    const bool isMissing = number == kInvalidCall;
    return Report(isMissing ? Problem::MissingAttribute : Problem::InvalidValue, mElement, name, description);
  }
  description += "; everything before it is kept";
  Error error(number, std::move(description));
  error.SetPosition(mElement.Position());
  throw error;
}

}  // namespace lwconfig
