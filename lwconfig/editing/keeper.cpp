#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/core/xml/xml_characters.h>
#include <lwconfig/editing/keeper.h>

namespace lwconfig {
namespace {

using automation::Saving;

constexpr const char* kCatalogue = "PageTemplates";

/// The nearest object of the way that decides how changes are kept; null where none does.
const AnyObject* FindOwner(const Way& way) {
  const auto found = std::find_if(way.rbegin(), way.rend(), [](const AnyObject& object) {
    return object.Class->Saving() != Saving::WithOwner;
  });
  return found == way.rend() ? nullptr : &*found;
}

[[noreturn]] void FailUnkept(const AnyObject& object, const std::string& why) {
  throw PathError(PathErrorKind::Usage, object.Class->Name() + why);
}

}  // namespace

bool Keeper::IsKeptAtOnce(const Way& way) const {
  const AnyObject* owner = FindOwner(way);
  return !mModel.IsNamed(way) && owner != nullptr && owner->Class->Saving() == Saving::AtOnce;
}

void Keeper::RequireKept(const Way& way) const {
  if (mModel.IsNamed(way)) return;
  const AnyObject* owner = FindOwner(way);
  if (owner == nullptr) FailUnkept(way.back(), " is not kept in any file");
  const Saving how = owner->Class->Saving();
  if (how == Saving::AtOnce) return;
  if (how == Saving::Never) FailUnkept(*owner, " cannot be saved: the model only reads it");
  if (!mModel.Listener().IsClean()) {
    throw PathError(PathErrorKind::Invalid,
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
    throw PathError(PathErrorKind::Usage, "the registry can hold no U+0000").At(text, nul);
  }
  if (const auto found = FindForbiddenCharacter(text)) {
    throw PathError(PathErrorKind::Usage, "the text has " + found->Name + ", which no XML file can have")
        .At(text, found->Offset);
  }
}

void Keeper::NoteRemoval(const Way& way) {
  if (const char* storage = way.back().Class->ItemStorage()) {
    const std::string name(storage);
    FailUnkept(way.back(), ": each item has a " + name + " of its own; remove the " + name);
  }
  Note(way);
}

void Keeper::Save() {
  const auto changed = std::exchange(mChanged, {});
  if (changed.empty()) return;
  for (const AnyObject& object : changed) {
    if (object.Class->Saving() == Saving::ByItself) {
      mModel.Invoke(object, "Save", automation::kMethod);
      continue;
    }
    const Variant catalogue = mModel.Invoke(mModel.Root(), kCatalogue, automation::kPropertyGet);
    std::array<Variant, 1> argument{object};
    mModel.Invoke(std::get<AnyObject>(catalogue), "SaveTemplate", automation::kMethod, argument);
  }
  mModel.Invoke(mModel.Root(), "ResetLWConfig", automation::kMethod);
  for (const AnyObject& object : changed) {
    const bool hasOwnFile = object.Class->Saving() == Saving::ByItself;
    mModel.Follow(ParsePath(hasOwnFile ? object.Class->Name() : kCatalogue));
  }
  if (!mModel.Listener().IsClean())
    throw PathError(PathErrorKind::Invalid, "with this change the configuration could not be read any more");
}

}  // namespace lwconfig
