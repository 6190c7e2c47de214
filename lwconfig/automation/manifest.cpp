#include <lwconfig/automation/contracts.h>
#include <lwconfig/automation/idl.h>
#include <lwconfig/automation/manifest.h>
#include <lwconfig/automation/published.h>

namespace lwconfig::automation {
namespace {

using Text = std::string;

Text Attribute(const char* name, const Text& value) {
  return Text(" ") + name + "=\"" + value + "\"";
}

Text Id(const Text& name) {
  return "{" + Text(Identity(name)) + "}";
}

Text ClassText(const ClassInfo& info) {
  const Text name = Text(kLibraryName) + "." + info.Name();
  return "    <comClass" + Attribute("clsid", Id(Text("class.") + info.Name())) + Attribute("progid", name) +
         Attribute("tlbid", Id(kLibraryName)) + Attribute("threadingModel", "Apartment") +
         ">\n      <progid>" + name + ".1</progid>\n    </comClass>\n";
}

/// `marshaler` is the first part of the identity of a marshaler of the system that uses the type library.
Text InterfaceText(const Text& name, const Text& identity, const Text& marshaler) {
  return "  <comInterfaceExternalProxyStub" + Attribute("name", name) +
         Attribute("iid", Id(identity + name)) + Attribute("tlbid", Id(kLibraryName)) +
         Attribute("proxyStubClsid32", "{" + marshaler + "-0000-0000-C000-000000000046}") + "/>\n";
}

Text Manifest(const char* architecture) {
  const Text name = kLibraryName;
  const Text version = kLibraryVersion;
  // Keep the name of the assembly different from that of the file, which would be searched for the manifest.
  Text text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
      "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n"
      "  <assemblyIdentity type=\"win32\"" +
      Attribute("name", name + ".X") + Attribute("version", version + ".0.0") +
      Attribute("processorArchitecture", architecture) + "/>\n  <file" + Attribute("name", name + ".dll") +
      ">\n    <typelib" + Attribute("tlbid", Id(name)) + Attribute("version", version) +
      Attribute("helpdir", "") + "/>\n";
  for (const ClassInfo* info : PublishedClasses()) {
    if (info->IsCreatable()) text += ClassText(*info);
  }
  text += "  </file>\n";
  for (const ClassInfo* info : PublishedClasses())
    text += InterfaceText(Text("_") + info->Name(), "interface.", "00020424");
  for (const ClassInfo* info : PublishedClasses()) {
    if (!info->Events().empty()) text += InterfaceText(Text("__") + info->Name(), "events.", "00020420");
  }
  return text + "</assembly>\n";
}

}  // namespace

std::string Manifest64() {
  return Manifest("amd64");
}

std::string Manifest32() {
  return Manifest("x86");
}

}  // namespace lwconfig::automation
