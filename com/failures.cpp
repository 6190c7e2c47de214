#include "failures.h"

#include <string>

#include "unknown.h"

namespace lwconfig::com {

HRESULT StoreFailure(const Error& failure, REFIID interfaceId) {
  ComPtr<ICreateErrorInfo> created;
  ComPtr<IErrorInfo> information;
  if (SUCCEEDED(::CreateErrorInfo(created.GetAddressOf()))) {
    created->SetGUID(interfaceId);
    created->SetSource(platform::Wide(failure.Source()).data());
    created->SetDescription(platform::Wide(failure.what()).data());
    if (SUCCEEDED(created.As(&information))) ::SetErrorInfo(0, information.Get());
  }
  return ResultOf(failure);
}

HRESULT StoreFailure(const Error& failure, REFIID interfaceId, EXCEPINFO* information) {
  const HRESULT result = StoreFailure(failure, interfaceId);
  if (information == nullptr) return result;
  const std::wstring source = platform::Wide(failure.Source());
  const std::wstring description = platform::Wide(failure.what());
  *information = {};
  information->bstrSource = ::SysAllocString(source.c_str());
  information->bstrDescription = ::SysAllocString(description.c_str());
  information->scode = result;
  return DISP_E_EXCEPTION;
}

HRESULT ForgetFailure(HRESULT result) {
  ::SetErrorInfo(0, nullptr);
  return result;
}

}  // namespace lwconfig::com
