#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/externaldocs/external_link.h>

namespace lwconfig {

void ExternalLink::Load(const XMLElement& e) {
  AttributeReader in(e);
  in.Try("URLFormat", URLFormat);
  in.Try("HTMLHelp1Link", HTMLHelp1LinkFormat);
  in.Try("Help2Link", Help2LinkFormat);
}

void ExternalLink::Save(XMLElement& e) const {
  e.PutAttribute("URLFormat", URLFormat);
  e.PutAttribute("HTMLHelp1Link", HTMLHelp1LinkFormat);
  e.PutAttribute("Help2Link", Help2LinkFormat);
}

void ExternalLink::Clone(const std::shared_ptr<ExternalLink>& Target) const {
  if (!Target) throw Error(kObjectNotSet, "No link was given to copy the formats to");
  *Target = *this;
}

}  // namespace lwconfig
