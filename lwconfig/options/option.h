#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <lwconfig/core/base/conversions.h>

namespace lwconfig {

class OptionSet;

enum class OptionType { Boolean, Integer, Enumeration, Text };

/// One option of any type: a view on one application value of the user. It caches no value: every read sees
/// the latest write of any process, every write is on disk when it returns.
class AnyOption {
 public:
  AnyOption(const AnyOption&) = delete;
  AnyOption& operator=(const AnyOption&) = delete;

  /// The name of the property.
  const char* Name() const { return mName; }
  /// The sub-key of the product's key that holds the value; "" for the key itself.
  const char* Section() const { return mSection; }
  const char* ValueName() const { return mValueName; }
  virtual OptionType Type() const = 0;
  /// The value as text, with "True" and "False" for booleans and decimal digits for enumerations. Error 13 or
  /// 6 where the stored text does not convert to the option's type.
  virtual std::string Text() const = 0;
  /// The same for the default, the value while nothing or an empty text is stored. Computed at each call.
  virtual std::string DefaultText() const = 0;
  /// Removes the stored value, so that the default applies. The error of a failing registry is thrown.
  void Reset();

 protected:
  /// Adds the option to its set. `name` is null where it is the name of the value.
  AnyOption(OptionSet& set, const char* section, const char* valueName, const char* name);
  ~AnyOption() = default;

  std::string Read(std::string_view defaultText) const;
  void Write(std::string_view text);
  [[noreturn]] void Fail(std::int32_t number, std::string_view text, const char* problem) const;

 private:
  const char* mName;
  const char* mSection;
  const char* mValueName;
};

/// Base of the option classes: the options declared in it, in order.
class OptionSet {
 public:
  OptionSet(const OptionSet&) = delete;
  OptionSet& operator=(const OptionSet&) = delete;

  /// The options live as long as the set.
  const std::vector<AnyOption*>& Options() const { return mOptions; }

 protected:
  OptionSet() = default;
  ~OptionSet() = default;

 private:
  friend class AnyOption;
  std::vector<AnyOption*> mOptions;
};

/// Returns a text unchanged.
inline Conversion<std::string> AsText(std::string_view text) {
  return {std::string(text)};
}

/// The default conversion of a type's stored text.
template <class T>
inline constexpr auto kUsualConversion = StrictInteger;
template <>
inline constexpr auto kUsualConversion<bool> = TextToBoolean;
template <>
inline constexpr auto kUsualConversion<std::string> = AsText;

/// An option with values of type `T` that reads its stored text through `Convert`. It behaves like a value:
///
///     Option<std::int32_t> WrapCharacters{*this, "VB", "WrapCharacters", 90};
///     options.WrapCharacters = 72;
///     int n = options.WrapCharacters;
template <class T, auto Convert = kUsualConversion<T>>
class Option : public AnyOption {
 public:
  using ValueType = T;

  /// `name` is the name of the property where it differs from that of the value.
  Option(OptionSet& set, const char* section, const char* valueName, T defaultValue,
         const char* name = nullptr)
      : AnyOption(set, section, valueName, name), mDefault(std::move(defaultValue)) {}
  /// With a default that is computed at each read.
  Option(OptionSet& set, const char* section, const char* valueName, T (*computeDefault)())
      : AnyOption(set, section, valueName, nullptr), mComputeDefault(computeDefault) {}

  /// Error 13 or 6 where the stored text does not convert.
  virtual T Get() const { return Value(Read(StoredDefault())); }
  /// Writes the value, even one outside its enumeration. The error of a failing registry is thrown.
  void Set(const T& value) { Write(ToStored(value)); }
  operator T() const { return Get(); }
  Option& operator=(const T& value) {
    Set(value);
    return *this;
  }
  // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): an option set to itself stores what it reads as.
  Option& operator=(const Option& other) {
    Set(other.Get());
    return *this;
  }

  OptionType Type() const override {
    if constexpr (std::is_same_v<T, bool>)
      return OptionType::Boolean;
    else if constexpr (std::is_enum_v<T>)
      return OptionType::Enumeration;
    else if constexpr (std::is_integral_v<T>)
      return OptionType::Integer;
    else
      return OptionType::Text;
  }
  std::string Text() const override { return ToStored(Get()); }
  std::string DefaultText() const override { return ToStored(Value(StoredDefault())); }

 private:
  static std::string ToStored(const T& value) {
    if constexpr (std::is_same_v<T, std::string>)
      return value;
    else if constexpr (std::is_enum_v<T>)
      return ToText(static_cast<std::int32_t>(value));
    else
      return std::string(ToText(value));
  }
  std::string StoredDefault() const {
    return ToStored(mComputeDefault != nullptr ? mComputeDefault() : mDefault);
  }
  T Value(const std::string& text) const {
    auto conversion = Convert(text);
    if (!conversion) Fail(conversion.ErrorNumber, text, conversion.Problem);
    return static_cast<T>(std::move(conversion.Value));
  }

  T mDefault{};
  T (*mComputeDefault)() = nullptr;
};

}  // namespace lwconfig
