#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include <tools/lwconfig/members/keeper.h>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/core/xml/xml_characters.h>

namespace lwconfig::tool {
namespace {

enum class Kept { BySave, ByCatalogue, AtOnce, Never };

struct Keeping {
  std::string_view Class;
  Kept How;
};

/// How changes of an object of the class, and of what belongs to it, are kept.
constexpr std::array<Keeping, 15> kKeeping{{
    {"PageTemplate", Kept::ByCatalogue},
    {"TaggedCommentDefs", Kept::BySave},
    {"ModelCommentProfiles", Kept::BySave},
    {"ExternalDocs", Kept::BySave},
    {"CommentFileLocations", Kept::BySave},
    {"VSNETOptions", Kept::AtOnce},
    {"VBOptions", Kept::AtOnce},
    {"LWCommenterOptions", Kept::AtOnce},
    {"IDEOptions", Kept::AtOnce},
    {"SpellingOptions", Kept::AtOnce},
    {"PageTemplates", Kept::Never},
    {"Languages", Kept::Never},
    {"NamespaceProfiles", Kept::Never},
    {"NamespaceDefs", Kept::Never},  // those of a template as well: it keeps the names of the profiles only
    {"PlugIns", Kept::Never},
}};

constexpr const char* kCatalogue = "PageTemplates";

const Keeping* Find(const AnyObject& object) {
  const auto* const found = std::ranges::find(kKeeping, object.Class->Name(), &Keeping::Class);
  return found == kKeeping.end() ? nullptr : found;
}

/// The nearest object of the way that decides how changes are kept; `rend` where none does.
auto FindOwner(const Way& way) {
  return std::find_if(way.rbegin(), way.rend(),
                      [](const AnyObject& object) { return Find(object) != nullptr; });
}

[[noreturn]] void FailUnkept(const AnyObject& object, const char* why) {
  throw Fault(ExitStatus::Usage, std::string(object.Class->Name()) + why);
}

}  // namespace

bool Keeper::IsKeptAtOnce(const Way& way) const {
  const auto owner = FindOwner(way);
  return !mModel.IsNamed(way) && owner != way.rend() && Find(*owner)->How == Kept::AtOnce;
}

void Keeper::RequireKept(const Way& way) const {
  if (mModel.IsNamed(way)) return;
  const auto owner = FindOwner(way);
  if (owner == way.rend()) FailUnkept(way.back(), " is not kept in any file");
  const Kept how = Find(*owner)->How;
  if (how == Kept::AtOnce) return;
  if (how == Kept::Never) FailUnkept(*owner, " cannot be saved: the model only reads it");
  if (!mModel.Report().IsClean()) {
    throw Fault(ExitStatus::Invalid,
                "the configuration could not be read as a whole; saving it could lose what was not read");
  }
}

void Keeper::Note(const Way& way) {
  RequireKept(way);
  if (mModel.IsNamed(way) || IsKeptAtOnce(way)) return;
  const AnyObject& owner = *FindOwner(way);
  if (std::ranges::find(mChanged, owner) == mChanged.end()) mChanged.push_back(owner);
}

void Keeper::RefuseUnwritable(const Way& way, const std::string& text) const {
  if (mModel.IsNamed(way)) return;
  if (IsKeptAtOnce(way)) {
    const std::size_t nul = text.find('\0');
    if (nul == std::string::npos) return;
    throw Fault(ExitStatus::Usage, "the registry can hold no U+0000").At(text, nul);
  }
  if (const auto found = FindForbiddenCharacter(text)) {
    throw Fault(ExitStatus::Usage, "the text has " + found->Name + ", which no XML file can have")
        .At(text, found->Offset);
  }
}

void Keeper::NoteRemoval(const Way& way) {
  const std::string_view name = way.back().Class->Name();
  if (name == kCatalogue || name == "ModelCommentProfiles") {
    FailUnkept(way.back(), name == kCatalogue ? ": each item has a folder of its own; remove the folder"
                                              : ": each item has a file of its own; remove the file");
  }
  Note(way);
}

void Keeper::Save() {
  const auto changed = std::exchange(mChanged, {});
  if (changed.empty()) return;
  for (const AnyObject& object : changed) {
    if (Find(object)->How == Kept::BySave) {
      mModel.Invoke(object, "Save", automation::kMethod);
      continue;
    }
    const Variant catalogue = mModel.Invoke(mModel.Root(), kCatalogue, automation::kPropertyGet);
    std::array<Variant, 1> argument{object};
    mModel.Invoke(std::get<AnyObject>(catalogue), "SaveTemplate", automation::kMethod, argument);
  }
  mModel.Invoke(mModel.Root(), "ResetLWConfig", automation::kMethod);
  for (const AnyObject& object : changed) {
    const bool hasOwnFile = Find(object)->How == Kept::BySave;
    mModel.Follow(ParsePath(hasOwnFile ? object.Class->Name() : kCatalogue));
  }
  if (!mModel.Report().IsClean())
    throw Fault(ExitStatus::Invalid, "with this change the configuration could not be read any more");
}

}  // namespace lwconfig::tool
