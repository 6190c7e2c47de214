#include <lwconfig/core/xml/internal/xml_data.h>
#include <lwconfig/core/xml/internal/xml_escape.h>

namespace lwconfig {
namespace {

using pugi::xml_node;

/// A comment, processing instruction or CDATA section, as the parser library writes it.
void AppendOther(std::string& out, xml_node node) {
  struct Writer : pugi::xml_writer {
    explicit Writer(std::string& target) : Target(target) {}
    void write(const void* data, std::size_t size) override {
      Target.append(static_cast<const char*>(data), size);
    }
    std::string& Target;
  } writer(out);
  node.print(writer, "", pugi::format_raw, pugi::encoding_utf8);
}

bool IsCharacterData(xml_node node) {
  return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

bool HasCharacterData(xml_node element) {
  for (const xml_node child : element.children()) {
    if (IsCharacterData(child)) return true;
  }
  return false;
}

/// Walk the tree without recursion: elements nest to any depth.
class Writer {
 public:
  std::string Write(xml_node document) {
    mOut = kXMLDeclaration;
    for (const xml_node top : document.children()) {
      WriteTree(top);
      mOut += '\n';
    }
    return std::move(mOut);
  }

 private:
  void WriteTree(xml_node top) {
    xml_node node = top;
    while (node) {
      if (mDepth > 0 && !InText()) AppendLineStart(mOut, mDepth);
      WriteStart(node);
      if (node.type() == pugi::node_element && node.first_child()) {
        ++mDepth;
        if (!InText() && HasCharacterData(node)) mTextDepth = mDepth;
        node = node.first_child();
      } else {
        node = Following(node, top);
      }
    }
  }

  void WriteStart(xml_node node) {
    if (node.type() == pugi::node_element) {
      (mOut += '<') += node.name();
      for (const auto attribute : node.attributes())
        AppendAttribute(mOut, attribute.name(), attribute.value());
      mOut += node.first_child() ? ">" : " />";
    } else if (node.type() == pugi::node_pcdata) {
      AppendText(mOut, node.value());
    } else {
      AppendOther(mOut, node);
    }
  }

  /// The node after a complete one, after closing the elements that it completes; null at the end.
  xml_node Following(xml_node node, xml_node top) {
    while (node != top) {
      if (const xml_node next = node.next_sibling()) return next;
      node = node.parent();
      const bool wasText = InText();
      if (mTextDepth == mDepth) mTextDepth = 0;
      --mDepth;
      if (!wasText) AppendLineStart(mOut, mDepth);
      ((mOut += "</") += node.name()) += '>';
    }
    return {};
  }

  /// Add no blank inside an element with character data.
  bool InText() const { return mTextDepth != 0; }

  std::string mOut;
  std::size_t mDepth = 0;
  std::size_t mTextDepth = 0;  // the depth of the outermost content with character data, 0 outside any
};

}  // namespace

std::string TreeText(pugi::xml_node document) {
  return Writer().Write(document);
}

}  // namespace lwconfig
