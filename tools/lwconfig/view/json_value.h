#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace lwconfig::tool {

/// A value of JSON: null, a truth value, a number, a text, a list, or an object, whose members keep their
/// order.
class Json {
 public:
  struct Member;
  using List = std::vector<Json>;
  using Object = std::vector<Member>;
  using Data =
      std::variant<std::nullptr_t, bool, std::int64_t, std::uint64_t, double, std::string, List, Object>;

  Json(std::nullptr_t = nullptr);
  Json(bool flag);
  Json(double number);
  Json(std::string text);
  Json(std::string_view text);
  Json(const char* text);
  Json(const std::vector<std::string>& texts);
  Json(List items);
  /// An object: `{{"Name", name}, {"Count", 3}}`.
  Json(std::initializer_list<Member> members);
  template <class T>
  requires std::integral<T> || std::is_enum_v<T> Json(T number) {
    if constexpr (std::is_unsigned_v<T>) {
      Set(static_cast<std::uint64_t>(number));
    } else {
      Set(static_cast<std::int64_t>(number));
    }
  }
  ~Json();
  Json(const Json& other);
  Json(Json&& other) noexcept;
  Json& operator=(const Json& other);
  Json& operator=(Json&& other) noexcept;

  static Json array(List items = {});
  static Json object();

  const Data& Value() const { return mData; }

  /// Of a list.
  bool empty() const;
  void push_back(Json item);
  Json& back();
  /// Of an object.
  const Object& Members() const;
  /// The value of the member, which is added where it is not there.
  Json& operator[](std::string_view name);

 private:
  void Set(std::int64_t number);
  void Set(std::uint64_t number);

  Data mData;
};

struct Json::Member {
  std::string Name;
  Json Value;
};

}  // namespace lwconfig::tool
