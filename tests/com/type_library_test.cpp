#include <tests/com/fixture.h>
#include <tests/com/slots.h>

namespace lwconfig::testing {
namespace {

class TypeLibraryTest : public ServerTest {};

TEST_F(TypeLibraryTest, DescribesEveryMember) {
  for (const SlotClass& info : SlotClasses()) {
    ComPtr<ITypeInfo> type;
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(TheServer().Types()->GetTypeInfoOfGuid(*info.Interface, &type), S_OK) << info.Name;
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK) << info.Name;
    for (UINT at = 0; at < attributes->cFuncs; ++at) {
      FUNCDESC* function = nullptr;
      const HRESULT code = type->GetFuncDesc(at, &function);
      EXPECT_EQ(code, S_OK) << info.Name << " " << at;
      if (code == S_OK) type->ReleaseFuncDesc(function);
    }
    type->ReleaseTypeAttr(attributes);
  }
}

}  // namespace
}  // namespace lwconfig::testing
