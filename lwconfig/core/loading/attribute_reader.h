#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/core/base/conversions.h>
#include <lwconfig/core/loading/children.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

/// The message for the second attribute of one name.
std::string RepeatedAttributeMessage(std::string_view name, std::string_view element);

/// Reads the attributes of one element into members, names matched without regard to letter case. A look-up
/// starts after the previous one, so that attributes in file order are found at once; any other look-up finds
/// the first of several attributes of one name. A failure is thrown unless the listener passes over it.
class AttributeReader {
 public:
  /// The element must outlive the reader.
  explicit AttributeReader(const XMLElement& e);
  /// Reports repeated attributes of the element, unless the load is failing.
  ~AttributeReader();
  AttributeReader(const AttributeReader&) = delete;
  AttributeReader& operator=(const AttributeReader&) = delete;

  /// Reads the attribute. Error 5 where it is absent; the member then keeps its value.
  void Require(const char* name, std::string& member) {
    if (const char* text = Required(name)) Assign(text, member);
  }
  /// As above, converted. The error of a failing conversion is thrown; the member then keeps its value.
  template <class T, class Convert>
  void Require(const char* name, T& member, Convert convert) {
    const char* text = Required(name);
    if (text == nullptr) return;
    const auto conversion = convert(text);
    if (!conversion)
      return Fail(conversion.ErrorNumber, name, "\"" + std::string(text) + "\" " + conversion.Problem);
    member = static_cast<T>(conversion.Value);
    if (conversion.Problem != nullptr) ReportDoubt(name, text, ToText(conversion.Value), conversion.Problem);
  }

  /// Reads the attribute; where it is absent the member keeps its value and the result is false.
  bool Try(const char* name, std::string& member) {
    const char* text = Find(name);
    if (text != nullptr) Assign(text, member);
    return text != nullptr;
  }
  /// As above, converted; the member also keeps its value where the conversion fails.
  template <class T, class Convert>
  bool Try(const char* name, T& member, Convert convert) {
    const char* text = Find(name);
    if (text == nullptr) return false;
    const auto conversion = convert(text);
    if (conversion) {
      member = static_cast<T>(conversion.Value);
      if (conversion.Problem != nullptr)
        ReportDoubt(name, text, ToText(conversion.Value), conversion.Problem);
    } else {
      ReportIgnored(name, text, conversion.Problem);
    }
    return static_cast<bool>(conversion);
  }

  /// Marks the attribute as known but deliberately ignored.
  void Skip(const char* name) const;

  /// The value of the attribute, or null where it is absent. Valid as long as the element.
  const char* Find(const char* name) {
    if (mNext == mEnd || *mNext->Name != *name || std::strcmp(mNext->Name, name) != 0) return Search(name);
    ++mFound;
    return (mNext++)->Value;
  }

 private:
  static void Assign(const char* text, std::string& member) {
    // Skip the assignment where both are empty, the most common case.
    if (*text != '\0' || !member.empty()) member = text;
  }
  /// Null where the listener passes over its absence.
  const char* Required(const char* name);
  const char* Search(const char* name);
  void ReportRepeated() const;
  /// Reports an optional value that fails to convert.
  void ReportIgnored(const char* name, const char* text, const char* problem) const;
  /// Reports a value that is used, though it may mean something else.
  void ReportDoubt(const char* name, const char* text, std::string_view taken, const char* doubt) const;
  /// Throws the error; returns where the listener passes over it.
  void Fail(std::int32_t number, const char* name, std::string_view found) const;

  struct Attribute {
    const char* Name;
    const char* Value;
  };
  static constexpr std::size_t kUsualCount = 32;

  const XMLElement& mElement;
  // The attributes, copied from the element once, so that failed look-ups are cheap.
  Attribute mUsual[kUsualCount];
  std::vector<Attribute> mMany;  // instead, where there are more
  const Attribute* mFirst;
  const Attribute* mEnd;
  const Attribute* mNext;
  std::ptrdiff_t mFound = 0;  // the number of look-ups that found an attribute
};

}  // namespace lwconfig
