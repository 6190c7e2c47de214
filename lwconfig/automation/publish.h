#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include <lwconfig/automation/value.h>
#include <lwconfig/options/option.h>

namespace lwconfig::automation {

template <class... Ts>
struct TypeList {};

/// Parameters and result of a member function, or of a free function whose first parameter is the object.
template <class F>
struct Signature;
template <class R, class C, class... P>
struct Signature<R (C::*)(P...)> {
  using Result = R;
  using Parameters = TypeList<P...>;
};
template <class R, class C, class... P>
struct Signature<R (C::*)(P...) const> : Signature<R (C::*)(P...)> {};
template <class R, class C, class... P>
struct Signature<R (*)(C&, P...)> : Signature<R (C::*)(P...)> {};
template <class R, class... P>
struct Signature<R (*)(P...)> {
  using Result = R;
  using Parameters = TypeList<P...>;
};

/// Enumerates a collection by its iterators, which survive changes of the collection.
template <class T>
class CollectionEnumerator final : public Enumerator {
 public:
  explicit CollectionEnumerator(std::shared_ptr<T> collection)
      : mCollection(std::move(collection)), mNext(mCollection->begin()) {}
  bool Next(Variant& item) override {
    if (mNext == mCollection->end()) return false;
    using Item = std::remove_cvref_t<decltype(*mNext)>;
    item = Crossing<Item>::ToVariant(*mNext);
    ++mNext;
    return true;
  }
  void Reset() override { mNext = mCollection->begin(); }
  std::unique_ptr<Enumerator> Clone() const override { return std::make_unique<CollectionEnumerator>(*this); }

 private:
  std::shared_ptr<T> mCollection;
  decltype(std::declval<const T&>().begin()) mNext;
};

/// Writes the member table of class `T`, one line for each member:
///
///     using I = Interface<VariableDef>;
///     static constexpr auto kSlots = I::Slots(I::Property<&VariableDef::Name>("Name"),
///                                             I::Method<&VariableDef::Load>("Load", "e", "PageTemplate"));
///     static const ClassInfo info = I::Class("VariableDef", kSlots);
///
/// A member is a data member, a member function, or a free function that takes the object first. The names of
/// the parameters follow that of the member; one in brackets, such as "[Key]", may be left out.
template <class T>
class Interface {
  template <std::size_t N>
  using SlotList = std::array<MemberInfo, N>;

 public:
  /// Joins rows to the table of a class and numbers its members in order.
  template <std::size_t... N>
  static constexpr auto Slots(const SlotList<N>&... rows) {
    SlotList<(N + ... + 0)> all{};
    std::size_t count = 0;
    [[maybe_unused]] const auto append = [&](const auto& row) {
      for (const MemberInfo& slot : row) all[count++] = slot;
    };
    (append(rows), ...);
    std::int32_t next = 1;
    for (std::size_t at = 0; at < count; ++at) {
      if (all[at].Id != kUnnumbered) continue;
      const std::string_view name = all[at].Name;
      for (std::size_t same = at; same < count; ++same) {
        if (all[same].Name == name) all[same].Id = next;
      }
      ++next;
    }
    return all;
  }

  /// Describes the class; `slots` and events must be static. Adds to `extras` what follows from the C++
  /// class.
  template <std::size_t N>
  static ClassInfo Class(const char* name, const SlotList<N>& slots, ClassExtras extras = {}) {
    if constexpr (std::is_default_constructible_v<T>)
      extras.Create = [] { return std::shared_ptr<void>(std::make_shared<T>()); };
    if constexpr (requires(const T& t) { t.Contains(ItemKey()), t.KeyAt(1); }) {
      extras.Collection = {
          [](const std::shared_ptr<void>& self, const ItemKey& key) { return Self(self).Contains(key); },
          [](const std::shared_ptr<void>& self, std::int32_t position) {
            return Self(self).KeyAt(position);
          }};
    }
    if constexpr (std::is_base_of_v<OptionSet, T>) {
      extras.Options = [](const void* self) -> const OptionSet& { return *static_cast<const T*>(self); };
      extras.Saving = Saving::AtOnce;
    }
    return ClassInfo(name, slots, extras);
  }

  /// A property to read and write: one data member, or the functions to get and set it.
  template <auto Getter, auto Setter = Getter>
  static constexpr auto Property(const char* name, MemberFacts facts = {}) {
    SlotList<2> row{Get<Getter>(name)[0], Change<Setter>(name)[0]};
    for (MemberInfo& slot : row) slot.Facts = facts;
    return row;
  }
  /// A property that holds a colour.
  template <auto Member>
  static constexpr auto Colour(const char* name) {
    return Declared(Property<Member>(name), {.Kind = ValueKind::Integer32, .IsColour = true});
  }
  /// As `Property`, with the accessors of the interface in the other order.
  template <auto Getter, auto Setter = Getter>
  static constexpr auto SetGetProperty(const char* name) {
    return SlotList<2>{Change<Setter>(name)[0], Get<Getter>(name)[0]};
  }
  /// A property to read only, with parameters or without.
  template <auto Getter, class... Names>
  static constexpr auto Get(const char* name, Names... parameters) {
    MemberInfo slot = Called<Getter>(name, parameters...);
    slot.Kind = kPropertyGet;
    return SlotList<1>{slot};
  }
  /// The accessor that changes a property: a set for one that holds an object, else a let.
  template <auto Setter>
  static constexpr auto Change(const char* name) {
    MemberInfo slot;
    if constexpr (std::is_member_object_pointer_v<decltype(Setter)>) {
      slot.Call = CallStore<Setter>;
      slot.ParameterCount = 1;
      slot.ParameterList[0] = {"Value", Crossing<StoredType<Setter>>::kType};
    } else {
      slot = Called<Setter>(name, "Value");
    }
    const ValueKind kind = slot.ParameterList[0].Type.Kind;
    slot.Kind = kind == ValueKind::Object || kind == ValueKind::AnyObject ? kPropertySet : kPropertyLet;
    slot.Name = name;
    slot.Id = kUnnumbered;
    slot.Result = {};
    return SlotList<1>{slot};
  }
  /// The set of a property that holds any value, beside its let.
  template <auto Member>
  static constexpr auto SetVariant(const char* name) {
    auto row = Change<Member>(name);
    row[0].Kind = kPropertySet;
    return row;
  }
  template <auto Function, class... Names>
  static constexpr auto Method(const char* name, Names... parameters) {
    return SlotList<1>{Called<Function>(name, parameters...)};
  }
  /// The members that every collection has; `added` names the first parameter of `Add`.
  static constexpr auto CollectionMembers(const char* added) {
    return SlotList<5>{MayBeNull(Get<&T::Item>("Item", "Key"))[0], Method<&T::Remove>("Remove", "Key")[0],
                       Method<&T::Add>("Add", added, "[Key]", "[Before]", "[After]")[0],
                       Get<&T::Count>("Count")[0], NewEnum()[0]};
  }
  static constexpr auto NewEnum() {
    MemberInfo slot;
    slot.Name = "NewEnum";
    slot.Id = kNewEnumId;
    slot.Kind = kPropertyGet;
    slot.Result = {ValueKind::Enumerator};
    slot.Call = [](const std::shared_ptr<void>& self, Variant*) {
      return EnumeratorValue(std::make_shared<CollectionEnumerator<T>>(std::static_pointer_cast<T>(self)));
    };
    return SlotList<1>{slot};
  }

  /// The row with another declared type: of the result, or of the value of its let.
  template <std::size_t N>
  static constexpr auto Declared(SlotList<N> row, TypeInfo type) {
    for (MemberInfo& slot : row) {
      (slot.Kind == kPropertyLet ? slot.ParameterList[0].Type : slot.Result) = type;
    }
    return row;
  }
  /// The row of an integer whose values have the names of `Named` and whose declared type is `InInterface`.
  template <class Named, class InInterface, std::size_t N>
  static constexpr auto Enumerated(const SlotList<N>& row) {
    return Declared(row, {ValueKind::Enumeration, nullptr, &EnumOf<Named>, &EnumOf<InInterface>});
  }
  template <std::size_t N>
  static constexpr auto AsVariant(const SlotList<N>& row) {
    return Declared(row, {ValueKind::Variant});
  }

  /// The row of a result that may be null; a text or object that always exists needs no such mark.
  template <std::size_t N>
  static constexpr auto MayBeNull(SlotList<N> row) {
    for (MemberInfo& slot : row) slot.Result.MayBeNull = slot.Result.Kind != ValueKind::None;
    return row;
  }

  template <auto Member>
  static constexpr EventInfo Event(const char* name) {
    return {name, [](const std::shared_ptr<void>& self, std::function<void()> handler) {
              return (static_cast<T*>(self.get())->*Member).Connect(std::move(handler));
            }};
  }

 private:
  static constexpr std::int32_t kUnnumbered = INT32_MIN;

  template <auto Member>
  using MemberType = std::remove_cvref_t<std::invoke_result_t<decltype(Member), T&>>;
  template <class M>
  struct Stored {
    using Type = M;
  };
  template <class M>
  requires std::is_base_of_v<AnyOption, M>
  struct Stored<M> {
    using Type = typename M::ValueType;
  };
  /// The type of the values of a data member; an option's is that of its values.
  template <auto Member>
  using StoredType = typename Stored<MemberType<Member>>::Type;
  /// Whether the value is stored in the data member itself.
  template <auto Member>
  static constexpr bool kIsStored = std::is_same_v<StoredType<Member>, MemberType<Member>>;

  template <auto Member, class... Names>
  static constexpr MemberInfo Called(const char* name, Names... parameters) {
    MemberInfo slot;
    if constexpr (std::is_member_object_pointer_v<decltype(Member)>) {
      slot.Result = Crossing<StoredType<Member>>::kType;
      slot.Call = CallLoad<Member>;
      slot.IsStored = kIsStored<Member>;
    } else {
      using Sig = Signature<decltype(Member)>;
      Fill(slot, typename Sig::Parameters{}, parameters...);
      using Result = std::remove_cvref_t<typename Sig::Result>;
      if constexpr (!std::is_void_v<Result>) slot.Result = Crossing<Result>::kType;
      slot.Call = CallFunction<Member>;
    }
    slot.Name = name;
    slot.Id = std::string_view(name) == "Item" ? kDefaultMemberId : kUnnumbered;
    return slot;
  }

  template <class... P, class... Names>
  static constexpr void Fill(MemberInfo& slot, TypeList<P...>, Names... names) {
    static_assert(sizeof...(P) == sizeof...(Names), "each parameter has a name");
    static_assert(sizeof...(P) <= kMostParameters);
    if constexpr (sizeof...(P) > 0) {
      const auto add = [&](std::string_view name, TypeInfo type, bool isByReference) {
        const bool isOptional = name.front() == '[';
        if (isOptional) name = name.substr(1, name.size() - 2);
        slot.ParameterList[slot.ParameterCount++] = {name, type, isOptional, isByReference};
      };
      (add(names, Argument<P>::kType, Argument<P>::kIsByReference), ...);
    }
  }

  static T& Self(const std::shared_ptr<void>& self) { return *static_cast<T*>(self.get()); }

  template <auto Member>
  static Variant CallLoad(const std::shared_ptr<void>& self, Variant*) {
    return Crossing<StoredType<Member>>::ToVariant(std::invoke(Member, Self(self)));
  }
  template <auto Member>
  static Variant CallStore(const std::shared_ptr<void>& self, Variant* arguments) {
    using Value = StoredType<Member>;
    Value value = MakeArgument<Value>(arguments[0], 0).Pass();
    auto& member = std::invoke(Member, Self(self));
    if constexpr (std::is_same_v<Value, MemberType<Member>>) {
      std::swap(member, value);  // destroyed last: its destructor may call this setter again
    } else {
      member = std::move(value);
    }
    return {};
  }
  template <auto Function>
  static Variant CallFunction(const std::shared_ptr<void>& self, Variant* arguments) {
    using Sig = Signature<decltype(Function)>;
    return CallWith<Function, std::remove_cvref_t<typename Sig::Result>>(Self(self), arguments,
                                                                         typename Sig::Parameters{});
  }

  template <class P>
  static Argument<P> MakeArgument(const Variant& value, std::size_t place) {
    try {
      return Argument<P>(value);
    } catch (const Error& problem) {
      throw ArgumentError(place + 1, problem);
    }
  }

  template <auto Function, class Result, class... P>
  static Variant CallWith(T& self, Variant* arguments, TypeList<P...>) {
    return CallIndexed<Function, Result, P...>(self, arguments, std::index_sequence_for<P...>{});
  }
  template <auto Function, class Result, class... P, std::size_t... I>
  static Variant CallIndexed(T& self, [[maybe_unused]] Variant* arguments, std::index_sequence<I...>) {
    // Use braces: arguments are converted from the first to the last.
    [[maybe_unused]] std::tuple<Argument<P>...> held{MakeArgument<P>(arguments[I], I)...};
    Variant result;
    if constexpr (std::is_void_v<Result>) {
      std::invoke(Function, self, std::get<I>(held).Pass()...);
    } else {
      result = Crossing<Result>::ToVariant(std::invoke(Function, self, std::get<I>(held).Pass()...));
    }
    (std::get<I>(held).Return(arguments[I]), ...);
    return result;
  }
};

}  // namespace lwconfig::automation
