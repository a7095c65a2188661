// The application's window, and the colour filter of the tree in it.
#include "platform/services/KORFrmLayout.h"

#include "platform/base/KORStatus.h"
#include "platform/system/KORPerform.h"

KORFrmLayout* KORFrmLayout::GetCurrentLayout() {
  return KORGive("GetCurrentLayout", []() -> KORFrmLayout* {
    KORFrmLayout& layout = KORSession::Current().GetPart<KORFrmLayout>();
    return layout._IsSet ? &layout : nullptr;
  });
}

KORBaseUnknown* KORFrmLayout::GetCurrentWindow() const {
  return KORGive("GetCurrentWindow", [this] { return _Window.Get(); });
}

void KORFrmLayout::SetCurrentWindow(const KORBaseUnknown_var& window) {
  KORFrmLayout& layout = KORSession::Current().GetPart<KORFrmLayout>();
  layout._IsSet = true;
  layout._Window = window;
}

long KORFrmWindow::GetBIFilterInfo(unsigned char& active, KORUnicodeString& name, KORListValKORString* values) {
  return KORPerform("GetBIFilterInfo", [&] {
    if (values == nullptr) return E_INVALIDARG;
    active = _Filter.Active;
    name = _Filter.Name;
    *values = _Filter.Values;
    return S_OK;
  });
}

long KORFrmWindow::GetQuadrantOpennessID(KORString& identifier) {
  return KORPerform("GetQuadrantOpennessID", [&] {
    identifier = _Filter.Openness;
    return S_OK;
  });
}

KORPLMCompQuadrantsOpennessManager* KORPLMCompQuadrantsOpennessManager::GetManager() {
  return KORGive("GetManager", [] { return &KORSession::Current().GetPart<KORPLMCompQuadrantsOpennessManager>(); });
}

long KORPLMCompQuadrantsOpennessManager::GetMaterialIndexFromIDForGivenQOpenness(
    const KORString& openness, const KORString& filter, const KORUnicodeString& attribute, const KORString& text,
    int& first, int& second, int& third, int& fourth, int& fifth) const {
  return KORPerform("GetMaterialIndexFromIDForGivenQOpenness", [&] {
    const auto found = _Indices.find({openness, filter, attribute, text});
    if (found == _Indices.end()) return E_FAIL;
    const Indices& indices = found->second;
    first = indices[0];
    second = indices[1];
    third = indices[2];
    fourth = indices[3];
    fifth = indices[4];
    return S_OK;
  });
}
