#include <gtest/gtest.h>

#include <lwconfig/core/base/conversions.h>

namespace lwconfig {
namespace {

template <class T>
std::string Outcome(const Conversion<T>& conversion) {
  return conversion ? std::string(ToText(conversion.Value))
                    : "error " + std::to_string(conversion.ErrorNumber);
}

const std::string kManyZeros(400, '0');

TEST(Conversions, ReadNumbers) {
  using Row = std::tuple<std::string, const char*, const char*>;
  for (const auto& [text, leading, strict] :
       {Row{"", "0", "error 13"}, Row{"  ", "0", "error 13"}, Row{"abc", "0", "error 13"},
        Row{"12abc", "12", "error 13"}, Row{"1 2", "1", "error 13"}, Row{"1,5", "1", "error 13"},
        Row{" 12 ", "12", "12"}, Row{"\t-12\r\n", "-12", "-12"}, Row{"+7", "7", "7"},
        Row{"+-7", "0", "error 13"}, Row{"- 7", "0", "error 13"}, Row{"-", "0", "error 13"},
        Row{"00000000000000000042", "42", "42"},
        // Halves go to the even neighbour.
        Row{"255.5", "256", "256"}, Row{"254.5", "254", "254"}, Row{"0.5", "0", "0"}, Row{"-0.5", "0", "0"},
        Row{"-1.5", "-2", "-2"}, Row{".5001", "1", "1"}, Row{"5.", "5", "5"}, Row{".", "0", "error 13"},
        Row{"1.5.5", "2", "error 13"}, Row{"1e3", "1000", "1000"}, Row{"25E-1", "2", "2"},
        Row{"1e", "1", "error 13"}, Row{"1e+", "1", "error 13"}, Row{"e3", "0", "error 13"},
        Row{"2147483647.4", "2147483647", "2147483647"}, Row{"2147483647.5", "error 6", "error 6"},
        Row{"-2147483648.5", "-2147483648", "-2147483648"}, Row{"-2147483649", "error 6", "error 6"},
        Row{"4294967295", "error 6", "error 6"}, Row{"1e400", "error 6", "error 6"},
        Row{"-1e400x", "error 6", "error 13"}, Row{"1e99999999999999999999", "error 6", "error 6"},
        Row{"1e-400", "0", "0"}, Row{"0e400", "0", "0"},
        // Out of the range of floating point, by their digits rather than their exponents.
        Row{"0." + kManyZeros + "1", "0", "0"}, Row{"1" + kManyZeros + "e-5", "error 6", "error 6"},
        Row{"1" + kManyZeros + "e-400", "1", "1"},
        // Other notations are none.
        Row{"0x10", "0", "error 13"}, Row{"&H10", "0", "error 13"}, Row{"inf", "0", "error 13"},
        Row{"nan", "0", "error 13"},
        Row{"\xC2\xA0"
            "12",
            "0", "error 13"},
        Row{"\xEF\xBC\x91", "0", "error 13"}}) {
    EXPECT_EQ(Outcome(LeadingInteger(text)), leading) << '"' << text << '"';
    EXPECT_EQ(Outcome(StrictInteger(text)), strict) << '"' << text << '"';
  }
}

TEST(Conversions, ReadBooleans) {
  using Row = std::pair<const char*, const char*>;
  for (const auto& [text, value] :
       {Row{"True", "True"}, Row{"tRUE", "True"}, Row{"FALSE", "False"}, Row{"0", "False"},
        Row{" 1 ", "True"}, Row{"-1", "True"}, Row{"0.3", "True"}, Row{"-0.0", "False"}, Row{"1e400", "True"},
        Row{"", "error 13"}, Row{"yes", "error 13"}, Row{"1x", "error 13"}, Row{"Truely", "error 13"}}) {
    EXPECT_EQ(Outcome(TextToBoolean(text)), value) << text;
    EXPECT_EQ(ExactTrue(text).Value, std::string_view(text) == "True") << text;
  }
}

}  // namespace
}  // namespace lwconfig
