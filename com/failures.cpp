#include "failures.h"

#include "unknown.h"
#include "values.h"

namespace lwconfig::com {

HRESULT Tell(const Error& failure, REFIID interfaceId) {
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

HRESULT Tell(const Error& failure, REFIID interfaceId, EXCEPINFO* information) {
  const HRESULT result = Tell(failure, interfaceId);
  if (information == nullptr) return result;
  *information = {};
  information->bstrSource = ToBstr(failure.Source());
  information->bstrDescription = ToBstr(failure.what());
  information->scode = result;
  return DISP_E_EXCEPTION;
}

}  // namespace lwconfig::com
