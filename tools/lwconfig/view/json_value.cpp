#include <algorithm>
#include <utility>

#include <tools/lwconfig/view/json_value.h>

namespace lwconfig::tool {

Json::Json(std::nullptr_t) : mData(nullptr) {}
Json::Json(bool flag) : mData(flag) {}
Json::Json(double number) : mData(number) {}
Json::Json(std::string text) : mData(std::move(text)) {}
Json::Json(std::string_view text) : mData(std::string(text)) {}
Json::Json(const char* text) : mData(std::string(text)) {}
Json::Json(const std::vector<std::string>& texts) : mData(List(texts.begin(), texts.end())) {}
Json::Json(List items) : mData(std::move(items)) {}
Json::Json(std::initializer_list<Member> members) : mData(Object(members)) {}
Json::~Json() = default;
Json::Json(const Json& other) = default;
Json::Json(Json&& other) noexcept = default;
Json& Json::operator=(const Json& other) = default;
Json& Json::operator=(Json&& other) noexcept = default;

void Json::Set(std::int64_t number) {
  mData = number;
}

void Json::Set(std::uint64_t number) {
  mData = number;
}

Json Json::array(List items) {
  return {std::move(items)};
}

Json Json::object() {
  Json json;
  json.mData = Object();
  return json;
}

bool Json::empty() const {
  return std::get<List>(mData).empty();
}

void Json::push_back(Json item) {
  std::get<List>(mData).push_back(std::move(item));
}

Json& Json::back() {
  return std::get<List>(mData).back();
}

const Json::Object& Json::Members() const {
  return std::get<Object>(mData);
}

Json& Json::operator[](std::string_view name) {
  auto& members = std::get<Object>(mData);
  const auto found = std::ranges::find(members, name, &Member::Name);
  if (found != members.end()) return found->Value;
  members.push_back({std::string(name), nullptr});
  return members.back().Value;
}

}  // namespace lwconfig::tool
