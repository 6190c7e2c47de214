#include <algorithm>
#include <array>
#include <string>

#include <tools/lwconfig/members/keeper.h>

#include <lwconfig/automation/class_info.h>

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

const Keeping* Find(const AnyObject& object) {
  const auto found = std::ranges::find(kKeeping, object.Class->Name(), &Keeping::Class);
  return found == kKeeping.end() ? nullptr : found;
}

[[noreturn]] void FailUnkept(const AnyObject& object, const char* why) {
  throw Fault(ExitStatus::Usage, std::string(object.Class->Name()) + why);
}

}  // namespace

void Keeper::Note(const Way& way) {
  for (auto object = way.rbegin(); object != way.rend(); ++object) {
    const Keeping* keeping = Find(*object);
    if (keeping == nullptr) continue;
    if (keeping->How == Kept::AtOnce) return;
    if (keeping->How == Kept::Never) FailUnkept(*object, " cannot be saved: the model only reads it");
    if (mModel.Report().Status() != ExitStatus::Done) {
      throw Fault(ExitStatus::Invalid,
                  "the configuration could not be read as a whole; saving it could lose what was not read");
    }
    if (std::ranges::find(mChanged, *object) == mChanged.end()) mChanged.push_back(*object);
    return;
  }
  FailUnkept(way.back(), " is not kept in any file");
}

void Keeper::NoteRemoval(const Way& way) {
  const std::string_view name = way.back().Class->Name();
  if (name == "PageTemplates" || name == "ModelCommentProfiles") {
    FailUnkept(way.back(), name == "PageTemplates" ? ": each item has a folder of its own; remove the folder"
                                                   : ": each item has a file of its own; remove the file");
  }
  Note(way);
}

void Keeper::Save() {
  for (const AnyObject& object : std::exchange(mChanged, {})) {
    if (Find(object)->How == Kept::BySave) {
      mModel.Invoke(object, "Save", automation::kMethod);
      continue;
    }
    const Variant catalogue = mModel.Invoke(mModel.Root(), "PageTemplates", automation::kPropertyGet);
    std::array<Variant, 1> argument{object};
    mModel.Invoke(std::get<AnyObject>(catalogue), "SaveTemplate", automation::kMethod, argument);
  }
}

}  // namespace lwconfig::tool
