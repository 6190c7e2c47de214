#include <algorithm>
#include <string_view>

#include <lwconfig/core/base/text.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/xml/string_tools.h>
#include <lwconfig/pages/page_layout.h>

namespace lwconfig {
namespace {

/// Methods and properties include the implemented ones; the page of a collection has no kind of its own.
std::string_view NamespaceOf(PageTypeEnum pageType, std::string_view fileName) {
  if (pageType == pgMethod) return "LW:Method,LW:ImplementedMethod";
  if (pageType == pgProperty) return "LW:Property,LW:ImplementedProperty";
  const auto element = pageType == pgcollection ? std::string_view() : CodeElementOf(pageType);
  if (!element.empty() || pageType == pgProjectGroup) return element;
  return EqualIgnoringCase(fileName, "libraries") ? "LW:Project" : "";
}

struct TitleOfFile {
  std::string_view FileName;
  std::string_view TitleTemplate;
};

/// The file-name templates of those layouts that had a title there in older files.
constexpr TitleOfFile kTitlesOfOlderFiles[] = {
    {"references.html", "%%projectname%%_references.html"},
    {"gettingstarted.html", "%%projectname%%_gettingstarted.html"},
    {"introduction.html", "%%projectname%%_introduction.html"},
    {"sourcecode.html", "%%itemqualifiedname%%_CODE.html"},
    {"projectgroup.html", "%%projectgroupname%%_PG.html"},
    {"libraries.html", "%%projectname%%_libraries.html"},
};

constexpr std::string_view kHelpProjectExtensions[] = {"hhc", "hhk", "hhp", "hxc", "hxt", "hxk", "hxf"};

bool IsHelpProjectExtension(std::string_view extension) {
  return std::any_of(std::begin(kHelpProjectExtensions), std::end(kHelpProjectExtensions),
                     [&](std::string_view known) { return EqualIgnoringCase(known, extension); });
}

std::string_view TitleOfOlderFile(std::string_view fileName) {
  for (const auto& title : kTitlesOfOlderFiles) {
    if (EqualIgnoringCase(title.FileName, fileName)) return title.TitleTemplate;
  }
  return {};
}

}  // namespace

bool PageLayout::IsHTMLHelpProjectFile() const {
  constexpr std::size_t kLength = 4;  // the dot and three letters
  if (FileName.size() < kLength) return false;
  const auto ending = std::string_view(FileName).substr(FileName.size() - kLength);
  return ending[0] == '.' && IsHelpProjectExtension(ending.substr(1));
}

std::shared_ptr<PageLayout> PageLayout::Clone() const {
  return std::make_shared<PageLayout>(*this);
}

void PageLayout::Load(const XMLElement& e) {
  AttributeReader in(e);
  in.Require("Name", Name);
  in.Require("FileName", FileName);
  PageType = kNoPageType;
  in.Try("PageType", PageType, StrictInteger);
  in.Require("TitleTemplate", TitleTemplate);
  in.Try("Namespace", Namespace);
  in.Try("DependantCount", DependantCount, LeadingInteger);
  in.Try("DependantOnnamespace", DependantOnNamespace);
  in.Try("DependantOnnamespace_Filter", DependantOnNamespace_Filter);
  FillDerivedValues();
}

void PageLayout::FillDerivedValues() {
  if (Namespace.empty() && PageType != kNoPageType) Namespace = NamespaceOf(PageType, FileName);
  if (TitleTemplate.empty()) {
    const std::string extension = StringTools::Piece(FileName, ".", 2);
    if (IsHelpProjectExtension(extension)) TitleTemplate = "%%projectgroupname%%." + extension;
  } else if (TitleTemplate.find('.') == std::string::npos) {
    TitleTemplate = TitleOfOlderFile(FileName);
  }
}

void PageLayout::Save(XMLElement& e) const {
  e.SetName("PageLayout");
  e.PutAttribute("Name", Name);
  e.PutAttribute("FileName", FileName);
  e.PutAttribute("PageType", ToText(PageType));
  e.PutAttribute("TitleTemplate", TitleTemplate);
  e.PutAttribute("Namespace", Namespace);
  e.PutAttribute("DependantCount", ToText(DependantCount));
  e.PutAttribute("DependantOnnamespace", DependantOnNamespace);
  e.PutAttribute("DependantOnnamespace_Filter", DependantOnNamespace_Filter);
}

void PageLayouts::Add(Pointer obj, std::string_view Key, const ItemKey& Before, const ItemKey& After) {
  KeyedCollection::Add(std::move(obj), Key, Before, After);
  ContentsChange.Raise();
}

}  // namespace lwconfig
