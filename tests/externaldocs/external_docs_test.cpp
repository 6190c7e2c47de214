#include <tests/configuration.h>

#include <lwconfig/externaldocs/external_docs.h>

namespace lwconfig::testing {
namespace {

constexpr const char* kFile = "ExternalDocs.xml";

/// A source whose member links have the same formats as its class links.
std::shared_ptr<ExternalDoc> Formats(const std::string& pattern, const std::string& url,
                                     const std::string& help1 = {}, const std::string& help2 = {}) {
  auto source = std::make_shared<ExternalDoc>();
  source->NamespaceName = pattern;
  source->SetURLFormat(url);
  source->SetHTMLHelp1LinkFormat(help1);
  source->SetHelp2LinkFormat(help2);
  source->ClassLink->Clone(source->DefaultMemberLink);
  return source;
}

class ExternalDocsFile : public ConfigurationTest {
 protected:
  ExternalDocs Docs;
};

TEST_F(ExternalDocsFile, IsReadAndWrittenInTheLetterCaseItHas) {
  Docs.Dirty = true;
  Docs.Load();
  EXPECT_FALSE(Docs.Dirty);
  Write("externaldocs.XML",
        "<any><externaldoc Namespace='x'/><ExternalDoc Namespace=''/>"
        "<ExternalDoc NAMESPACE='N' URLFormat='u' Help2Link='&lt;ü&gt;'>text"
        "<x Help2Link='m2'/><DefaultMemberLink URLFormat='ignored'/></ExternalDoc></any>");
  Docs.Load();
  const auto copy = Docs.Clone();
  Docs.Item("n")->SetURLFormat("changed");
  Docs.Item("n")->DefaultMemberLink->Help2LinkFormat = "changed";
  copy->Dirty = true;
  copy->Save();
  EXPECT_FALSE(copy->Dirty);
  const auto names = platform::Files::Native().List(ConfigFolder());
  EXPECT_TRUE(std::ranges::none_of(names, [](const auto& entry) { return entry.Name == kFile; }));
  EXPECT_EQ(Read("externaldocs.XML"),
            Normal("<ExternalDocuments Version='4.0'>"
                   "<ExternalDoc Namespace='' URLFormat='' HTMLHelp1Link='' Help2Link=''>"
                   "<DefaultMemberLink URLFormat='' HTMLHelp1Link='' Help2Link=''/></ExternalDoc>"
                   "<ExternalDoc Namespace='N' URLFormat='u' HTMLHelp1Link='' Help2Link='&lt;ü&gt;'>"
                   "<DefaultMemberLink URLFormat='' HTMLHelp1Link='' Help2Link='m2'/></ExternalDoc>"
                   "</ExternalDocuments>"));
  Remove("externaldocs.XML");
  copy->Save();
  EXPECT_TRUE(Exists(kFile));
}

TEST_F(ExternalDocsFile, KeepsWhatWasThereWhenItFails) {
  Docs.Add(Formats("Earlier", "u"), "Earlier");
  Docs.Dirty = true;
  Write(kFile, "<any><ExternalDoc Namespace='A'/><ExternalDoc/></any>");
  EXPECT_ERROR(kInvalidCall, Docs.Load());
  EXPECT_THAT(Each(Docs, &ExternalDoc::NamespaceName), ElementsAre("Earlier", "A"));
  Write(kFile, "old");
  Docs.Item(1)->DefaultMemberLink = nullptr;
  EXPECT_ERROR(kObjectNotSet, Docs.Save());
  EXPECT_ERROR(kObjectNotSet, ExternalLink().Clone(nullptr));
  EXPECT_EQ(Read(kFile), "old");
  EXPECT_TRUE(Docs.Dirty);
}

TEST(ExternalDocs, FillPlaceholders) {
  ExternalDocs docs;
  docs.Add(Formats("*", "%%Namespace%%|%%Object%%|%%FULLNAME%%|%%Class%%|%%ClassFullName%%|%%MemberName%%"));
  EXPECT_EQ(docs.URL("A.B.C"), "A.B|C|A.B.C|%%Class%%|%%ClassFullName%%|%%MemberName%%");
  EXPECT_EQ(docs.URL("C"), "|C|C|%%Class%%|%%ClassFullName%%|%%MemberName%%");
  EXPECT_EQ(docs.MemberLink("A.B.C", "Add(System.Object)", "<>", false),
            "<a href=\"A.B|%%Object%%|%%FULLNAME%%|C|A.B.C|Add\"><></a>");
  docs.Remove(1);
  docs.Add(Formats("*", "%%namespace_nodots%%|%%FullName_NoDots%%|%%ClassFullName_NoDots%%|%%LinkCaption%%"));
  EXPECT_EQ(docs.URL("A.B.C"), "AB|ABC|%%ClassFullName_NoDots%%|%%LinkCaption%%");
  EXPECT_EQ(docs.Link("A.B.C", "Cap", false), "<a href=\"AB|ABC|%%ClassFullName_NoDots%%|Cap\">Cap</a>");
  EXPECT_EQ(docs.MemberLink("A.B.C", "", "%%Class%%", false),
            "<a href=\"AB|%%FullName_NoDots%%|ABC|%%Class%%\">%%Class%%</a>");
  docs.Item(1)->DefaultMemberLink->HTMLHelp1LinkFormat = "%%MemberName%%";
  for (const auto& [member, value] :
       {std::pair{"_ctor(_ctor)", "ctor"}, {"x__ctor_ctor", "x_ctorctor"}, {"(a", ""}})
    EXPECT_EQ(docs.MemberLink("A.B", member, "", true), value);
}

TEST(ExternalDocs, ChooseTheFormatByTheKindOfHelp) {
  const char* const anchor = "<a href=\"u\">Cap</a>";
  for (const auto& [help1, help2, isHelp2, link] :
       {std::tuple{"1", "2", true, "2"}, std::tuple{"1", "2", false, "1"}, std::tuple{"1", "", true, "1"},
        std::tuple{"", "2", false, anchor}, std::tuple{"", "", true, anchor}}) {
    ExternalDocs docs;
    docs.Add(Formats("N.*", "u", help1, help2));
    EXPECT_EQ(docs.Link("N.C", "Cap", isHelp2), link);
    EXPECT_EQ(docs.MemberLink("N.x.C", "M", "Cap", isHelp2), link);
  }
}

TEST(ExternalDocs, MatchDifferentPartsOfAName) {
  using Row = std::tuple<const char*, const char*, bool, bool, bool>;
  for (const auto& [pattern, name, link, isAvailable, url] :
       {Row{"System.*", "System.A", true, false, true}, Row{"System.*", "System.Xml.A", true, true, true},
        Row{"System", "System.A", false, true, false}, Row{"System.Xml", "System.Xml.A", true, true, false},
        Row{".", "A", true, false, false}, Row{"", "A", false, true, false},
        Row{"A", "A", false, false, true}, Row{"system.*", "System.A", false, false, false}}) {
    ExternalDocs docs;
    docs.Add(Formats(pattern, "found"));
    EXPECT_EQ(docs.Link(name, "", false) != "", link) << name;
    for (int i = 0; i < 2; ++i) EXPECT_EQ(docs.IsLinkAvailable(name), isAvailable) << name;
    EXPECT_EQ(docs.MemberLink(name, "", "", false) != "", isAvailable) << name;
    EXPECT_EQ(docs.URL(name) != "", url) << name;
  }
}

TEST(ExternalDocs, KeepTheirAnswersUntilReset) {
  ExternalDocs docs;
  EXPECT_EQ(docs.Link("N.C", "Cap", false), "");
  EXPECT_FALSE(docs.IsLinkAvailable("N.C"));
  docs.Add(Formats("N*", "", "1", "2"), "N*");
  docs.Add(Formats("N.*", "", "late"), "N.*");
  EXPECT_EQ(docs.Link("N.C", "Cap", false), "1");
  EXPECT_TRUE(docs.IsLinkAvailable("N.C"));
  docs.Remove("n*");
  EXPECT_EQ(docs.Link("n.c", "CAP", true), "1");
  EXPECT_EQ(docs.Link("N.C", "Cap", true, "other"), "late");
  EXPECT_TRUE(docs.IsLinkAvailable("n.D"));
  const auto copy = docs.Clone();
  EXPECT_EQ(copy->Link("N.C", "Cap", true), "late");
  EXPECT_FALSE(copy->IsLinkAvailable("N.C"));
  EXPECT_EQ(copy->Item("N.*"), nullptr);
  docs.ResetLinkCache();
  EXPECT_EQ(docs.Link("N.C", "Cap", true), "late");
  EXPECT_FALSE(docs.IsLinkAvailable("N.C"));
  // A pattern of one blank is remembered as no link.
  docs.Add(Formats(" ", "u"));
  EXPECT_TRUE(docs.IsLinkAvailable(" .C"));
  EXPECT_FALSE(docs.IsLinkAvailable(" .C"));
}

}  // namespace
}  // namespace lwconfig::testing
