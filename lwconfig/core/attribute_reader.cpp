#include <algorithm>

#include <lwconfig/core/attribute_reader.h>
#include <lwconfig/core/diagnostics.h>
#include <lwconfig/core/internal/xml_data.h>

namespace lwconfig {
namespace {

/// Each place costs a look at the file; a file of nothing but faults must not cost the square of its size.
constexpr int kMostTold = 20;

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
}

const char* AttributeReader::Search(const char* name) {
  const auto matches = [name](const Attribute& attribute) { return NameEquals(attribute.Name, name); };
  const Attribute* found = std::find_if(mFirst, mEnd, matches);
  if (found == mEnd) return nullptr;
  mNext = found + 1;
  return found->Value;
}

void AttributeReader::TellIgnored(const char* name, const char* text, const char* problem) const {
  XMLDocumentData& document = *mElement.mDocument;
  if (document.SourcePath.empty() || document.IgnoredValuesTold++ >= kMostTold) return;
  Diagnose({mElement.Position(),
            std::string("the attribute \"") + name + "\" is ignored: \"" + text + "\" " + problem});
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
  description += "; what stands before is kept";
  Error error(number, std::move(description));
  error.SetPosition(mElement.Position());
  throw error;
}

}  // namespace lwconfig
