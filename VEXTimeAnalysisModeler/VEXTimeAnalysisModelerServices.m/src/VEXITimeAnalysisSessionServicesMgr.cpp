// The interface of the table of kept components.
#include "VEXITimeAnalysisSessionServicesMgr.h"

const KORMetaClass* VEXITimeAnalysisSessionServicesMgr::MetaObject() {
  static constexpr KORUuid Identifier{
      {0xCB, 0x23, 0x09, 0x9A, 0x60, 0x91, 0x46, 0xA8, 0x88, 0x23, 0x00, 0x5B, 0x60, 0x65, 0x5E, 0xCA}};
  static const KORMetaClass description{"VEXITimeAnalysisSessionServicesMgr", Identifier, KORBaseUnknown::MetaObject()};
  return &description;
}
