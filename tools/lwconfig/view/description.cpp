#include <algorithm>

#include <tools/lwconfig/view/description.h>
#include <tools/lwconfig/view/table.h>

#include <lwconfig/automation/contracts.h>
#include <lwconfig/automation/conversion.h>
#include <lwconfig/automation/signature.h>

namespace lwconfig::tool {
namespace {

using automation::ClassInfo;
using automation::Contract;
using automation::EnumInfo;
using automation::ParameterInfo;

Json ParameterJson(const ParameterInfo& parameter) {
  return {{"Name", parameter.Name},
          {"Type", automation::TypeName(parameter.Type)},
          {"IsOptional", parameter.IsOptional},
          {"IsByReference", parameter.IsByReference}};
}

MemberDescription DescribeMember(const ClassInfo& owner, const ClassInfo::Member& member) {
  const bool isDefault = member.Id == automation::kDefaultMemberId;
  MemberDescription described{member.Name, owner.Name(), automation::SignatureText(member),
                              automation::AccessText(member) + (isDefault ? ", default" : ""),
                              std::string(Contract(owner.Name(), member.Name))};
  const auto type = automation::TypeOf(member);
  described.Details["Id"] = member.Id;
  described.Details["Type"] = automation::TypeName(type);
  described.Details["Parameters"] = Json::array();
  for (const ParameterInfo& parameter : automation::ParametersOf(member))
    described.Details["Parameters"].push_back(ParameterJson(parameter));
  return described;
}

std::string NoteOn(const ClassInfo& info) {
  std::string note = info.IsCreatable() ? "programs can create it" : "other objects hand it out";
  if (info.IsCollection()) note += "; collection";
  return note;
}

class Writer {
 public:
  explicit Writer(const TextStyle& style) : mStyle(style) {}

  /// The text in lines as wide as the output, each after so many blanks.
  void Add(const StyledText& text, std::size_t indent) {
    constexpr std::size_t kLeastColumns = 20;
    const std::string margin(indent, ' ');
    const std::size_t columns = std::max(mStyle.Columns, indent + kLeastColumns) - indent;
    for (StyledText& line : mStyle.Columns == 0 ? std::vector<StyledText>(1, text) : Wrap(text, columns)) {
      line.insert(line.begin(), {margin});
      mText += (mStyle.IsColoured ? Painted(line, mStyle.IsTrueColour) : Unpainted(line)) + "\n";
    }
  }
  void Blank() { mText += "\n"; }
  void Paragraphs(std::string_view text, std::size_t indent) {
    while (!text.empty()) {
      const auto end = text.find("\n\n");
      Add({{std::string(text.substr(0, end))}}, indent);
      if (end == std::string_view::npos) return;
      Blank();
      text.remove_prefix(end + 2);
    }
  }
  std::string Text() && { return std::move(mText); }

 private:
  const TextStyle& mStyle;
  std::string mText;
};

StyledText Headline(const std::string& name, const std::string& remark) {
  StyledText line{{name, Tone::Title}};
  if (!remark.empty()) line.push_back({"  " + remark, Tone::Quiet});
  return line;
}

}  // namespace

Description Describe(const ClassInfo& info) {
  Description described{info.Name(), "class", NoteOn(info), std::string(Contract(info.Name()))};
  for (const auto& member : info.Members()) described.Members.push_back(DescribeMember(info, member));
  for (const auto& event : info.Events()) {
    described.Members.push_back({event.Name, info.Name(), std::string(event.Name) + "()", "event",
                                 std::string(Contract(info.Name(), event.Name))});
  }
  return described;
}

Description Describe(const EnumInfo& info) {
  Description described{info.Name, "enumeration", "", std::string(Contract(info.Name))};
  for (const auto& member : info.Members) {
    MemberDescription value{member.Name, info.Name,
                            std::string(member.Name) + " = " + std::to_string(member.Value), "",
                            std::string(Contract(info.Name, member.Name))};
    value.Details["Value"] = member.Value;
    described.Members.push_back(std::move(value));
  }
  return described;
}

std::string DescriptionText(const std::vector<Description>& all, const TextStyle& style) {
  Table table({"NAME", "KIND", "ABOUT"});
  for (const Description& described : all) {
    table.Add({{described.Name},
               {described.Kind, Tone::Quiet},
               {std::string(automation::Summary(described.Contract))}});
  }
  return table.Text(style);
}

std::string DescriptionText(const Description& described, const TextStyle& style) {
  Writer writer(style);
  writer.Add(Headline(described.Name, described.Kind + (described.Note.empty() ? "" : "; " + described.Note)),
             0);
  writer.Paragraphs(described.Contract, 2);
  writer.Blank();
  for (const MemberDescription& member : described.Members) {
    // The meaning of an enumeration's value is a few words.
    const bool isValue = member.Kind.empty();
    writer.Add(Headline(member.Signature, isValue ? member.Contract : member.Kind), 2);
    if (!isValue) writer.Paragraphs(automation::Summary(member.Contract), 6);
  }
  return std::move(writer).Text();
}

std::string DescriptionText(const MemberDescription& member, const TextStyle& style) {
  Writer writer(style);
  writer.Add(Headline(member.Owner + "." + member.Signature, member.Kind), 0);
  writer.Paragraphs(member.Contract, 2);
  return std::move(writer).Text();
}

Json ToJson(const std::vector<Description>& all) {
  Json json = Json::array();
  for (const Description& described : all) json.push_back(ToJson(described));
  return json;
}

Json ToJson(const Description& described) {
  Json json{{"Name", described.Name}, {"Kind", described.Kind}, {"Contract", described.Contract}};
  if (const ClassInfo* info = automation::FindClass(described.Name)) {
    json["IsCreatable"] = info->IsCreatable();
    json["IsCollection"] = info->IsCollection();
  }
  json["Members"] = Json::array();
  for (const MemberDescription& member : described.Members) json["Members"].push_back(ToJson(member));
  return json;
}

Json ToJson(const MemberDescription& member) {
  Json json{{"Name", member.Name}, {"Signature", member.Signature}};
  if (!member.Kind.empty()) json["Kind"] = member.Kind;
  for (const auto& [name, value] : member.Details.Members()) json[name] = value;
  json["Contract"] = member.Contract;
  return json;
}

}  // namespace lwconfig::tool
