#include <tests/com/fixture.h>
#include <tests/com/slots.h>

namespace lwconfig::testing {
namespace {

class TypeLibraryTest : public ServerTest {};

/// The interface that belongs to a dispatch interface.
ComPtr<ITypeInfo> Vtable(const ComPtr<ITypeInfo>& type) {
  HREFTYPE reference = 0;
  ComPtr<ITypeInfo> found;
  if (SUCCEEDED(type->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)))
    type->GetRefTypeInfo(reference, &found);
  return found;
}

TEST_F(TypeLibraryTest, DescribesEverySlotAtItsPlace) {
  constexpr std::size_t kInherited = 7;  // of IUnknown and IDispatch
  auto slot = Slots().begin();
  for (const SlotClass& info : SlotClasses()) {
    ComPtr<ITypeInfo> late;
    ASSERT_EQ(TheServer().Types()->GetTypeInfoOfGuid(*info.Interface, &late), S_OK) << info.Name;
    const ComPtr<ITypeInfo> early = Vtable(late);
    ASSERT_TRUE(early) << info.Name;
    std::size_t place = 0;
    for (; slot != Slots().end() && slot->Interface == info.Interface; ++slot, ++place) {
      const std::string name = std::string(slot->Class) + "." + slot->Method;
      FUNCDESC* function = nullptr;
      ASSERT_EQ(early->GetFuncDesc(static_cast<UINT>(place), &function), S_OK) << name;
      Value member(L"");
      UINT count = 0;
      ::SysFreeString(std::exchange(member.bstrVal, nullptr));
      EXPECT_EQ(early->GetNames(function->memid, &member.bstrVal, 1, &count), S_OK) << name;
      EXPECT_STREQ(member.bstrVal, slot->Member) << name;
      EXPECT_EQ(WORD{static_cast<WORD>(function->invkind)}, slot->Kind) << name;
      EXPECT_EQ(static_cast<std::size_t>(function->oVft), (kInherited + place) * sizeof(void*)) << name;
      EXPECT_EQ(static_cast<std::size_t>(function->cParams), slot->Parameters.size()) << name;
      early->ReleaseFuncDesc(function);
    }
    // Late-bound clients see those of IUnknown and IDispatch too.
    for (std::size_t at = 0; at < kInherited + place; ++at) {
      FUNCDESC* function = nullptr;
      ASSERT_EQ(late->GetFuncDesc(static_cast<UINT>(at), &function), S_OK) << info.Name << " " << at;
      late->ReleaseFuncDesc(function);
    }
  }
  EXPECT_EQ(slot, Slots().end());
}

}  // namespace
}  // namespace lwconfig::testing
