#ifndef TOVIKXML_FASTINFOSET_DECLARATION_H_
#define TOVIKXML_FASTINFOSET_DECLARATION_H_

namespace TovikXmlLib16 {

/// The optional XML declaration in front of a Fast Infoset document (ITU-T X.891, 12.3). The
/// integer values are part of the exported interface.
enum FInfoDecl : int {
  fid_None = 0,
  fid_Encoding = 1,               ///< <?xml encoding='finf'?>
  fid_EncodingStandaloneYes = 2,  ///< <?xml encoding='finf' standalone='yes'?>
  fid_EncodingStandaloneNo = 3,   ///< <?xml encoding='finf' standalone='no'?>
  fid_V10 = 4,                    ///< <?xml version='1.0' encoding='finf'?>
  fid_V10StandaloneYes = 5,       ///< <?xml version='1.0' encoding='finf' standalone='yes'?>
  fid_V10StandaloneNo = 6,        ///< <?xml version='1.0' encoding='finf' standalone='no'?>
  fid_V11 = 7,                    ///< <?xml version='1.1' encoding='finf'?>
  fid_V11StandaloneYes = 8,       ///< <?xml version='1.1' encoding='finf' standalone='yes'?>
  fid_V11StandaloneNo = 9         ///< <?xml version='1.1' encoding='finf' standalone='no'?>
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_FASTINFOSET_DECLARATION_H_
