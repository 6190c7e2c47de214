#include <algorithm>
#include <exception>

#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/loading/diagnostics.h>
#include <lwconfig/core/loading/inspection.h>
#include <lwconfig/core/xml/internal/xml_data.h>

namespace lwconfig {
namespace {

/// Each place costs a look at the file; a file of nothing but faults must not cost the square of its size.
constexpr int kMostTold = 20;
/// How far apart two attributes of one name are noticed: thousands must not cost their square either.
constexpr std::ptrdiff_t kMostCompared = 100;

/// Attribute names that are looked up are ASCII, so folding letters of either side byte by byte is exact.
bool NameEquals(const char* name, const char* wanted) {
  for (; *wanted != '\0'; ++name, ++wanted) {
    if (*name != *wanted && AsciiLower(*name) != AsciiLower(*wanted)) return false;
  }
  return *name == '\0';
}

}  // namespace

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
  if (e.mDocument->IsInspected()) {
    e.mDocument->NoteLook(pugi::xml_node(e.Node()).name());
    mNext = mEnd;  // every look-up then comes to `Search`, which notes it
  }
}

void AttributeReader::Skip(const char* name) const {
  if (!mElement.mDocument->IsInspected()) return;
  for (const Attribute* attribute = mFirst; attribute != mEnd; ++attribute) {
    if (NameEquals(attribute->Name, name)) return mElement.mDocument->NoteLook(attribute->Name);
  }
}

const char* AttributeReader::Search(const char* name) {
  const auto matches = [name](const Attribute& attribute) { return NameEquals(attribute.Name, name); };
  const Attribute* found = std::find_if(mFirst, mEnd, matches);
  XMLDocumentData& document = *mElement.mDocument;
  if (document.IsInspected()) {
    if (found != mEnd) {
      document.NoteLook(found->Name);
    } else {
      Inspection::Current()->NoteAbsent(Inspection::NameKind::Attribute,
                                        pugi::xml_node(mElement.Node()).name(), name);
    }
    return found != mEnd ? found->Value : nullptr;
  }
  if (found == mEnd) return nullptr;
  mNext = found + 1;
  ++mFound;
  return found->Value;
}

AttributeReader::~AttributeReader() {
  // Each name is looked up once, so that what is there twice is left over.
  // An inspection tells of what nothing read itself.
  const bool isInspected = mElement.mDocument->IsInspected();
  if (mFound < mEnd - mFirst && !isInspected && std::uncaught_exceptions() == 0) TellRepeated();
}

void AttributeReader::TellRepeated() const {
  for (const Attribute* attribute = mFirst; attribute != mEnd; ++attribute) {
    const auto isSame = [attribute](const Attribute& other) {
      return std::strcmp(other.Name, attribute->Name) == 0;
    };
    const Attribute* from = attribute - std::min(attribute - mFirst, kMostCompared);
    if (std::any_of(from, attribute, isSame)) {
      return Tell(std::string("not well-formed XML: the attribute \"") + attribute->Name +
                  "\" is given twice");
    }
  }
}

void AttributeReader::TellIgnored(const char* name, const char* text, const char* problem) const {
  const std::string message =
      std::string("the attribute \"") + name + "\" is ignored: \"" + text + "\" " + problem;
  if (Inspection* const inspection = Inspection::Current())
    return inspection->Tell(Problem::IgnoredValue, mElement, name, message);
  Tell(message);
}

void AttributeReader::Tell(const std::string& message) const {
  XMLDocumentData& document = *mElement.mDocument;
  if (!document.SourcePath.empty() && document.OdditiesTold++ < kMostTold)
    Diagnose({mElement.Position(), message});
}

void AttributeReader::TellDoubt(const char* name, const char* text, std::string_view taken,
                                const char* doubt) const {
  Inspection* const inspection = Inspection::Current();
  if (inspection == nullptr) return;
  std::string message = std::string("the attribute \"") + name + "\" is taken as " + std::string(taken) +
                        ": \"" + text + "\" " + doubt;
  inspection->Tell(Problem::DoubtfulValue, mElement, name, message, [&] {
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
  if (Inspection* const inspection = Inspection::Current()) {
    // Where there is no element at all, that was told.
    if (element.empty()) return;
    const bool isMissing = number == kInvalidCall;
    return inspection->Tell(isMissing ? Problem::MissingAttribute : Problem::InvalidValue, mElement, name,
                            description);
  }
  description += "; what stands before is kept";
  Error error(number, std::move(description));
  error.SetPosition(mElement.Position());
  throw error;
}

}  // namespace lwconfig
