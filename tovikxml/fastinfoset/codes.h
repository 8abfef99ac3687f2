#ifndef TOVIKXML_FASTINFOSET_CODES_H_
#define TOVIKXML_FASTINFOSET_CODES_H_

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "tovikxml/base/wide_string.h"

/// The numbers of the format that the reader and the writer share. Internal.
namespace TovikXmlLib16 {

/// What stands in front of the header, in the order of `FInfoDecl` from 1 (ITU-T X.891, 12.3).
inline constexpr std::string_view kFIDeclarations[] = {
    "<?xml encoding='finf'?>",
    "<?xml encoding='finf' standalone='yes'?>",
    "<?xml encoding='finf' standalone='no'?>",
    "<?xml version='1.0' encoding='finf'?>",
    "<?xml version='1.0' encoding='finf' standalone='yes'?>",
    "<?xml version='1.0' encoding='finf' standalone='no'?>",
    "<?xml version='1.1' encoding='finf'?>",
    "<?xml version='1.1' encoding='finf' standalone='yes'?>",
    "<?xml version='1.1' encoding='finf' standalone='no'?>",
};
/// Identification and version 1 (12.6, 12.7).
inline constexpr unsigned char kFIIdentification[] = {0xE0, 0x00, 0x00, 0x01};

/// The external vocabulary of a context that gives it no URI.
inline constexpr WStringView kFIDefaultVocabularyUri = u"urn:tovikxml:external-vocabulary";

/// Presence bits of the header's optional components, and the highest of those of an initial
/// vocabulary (C.2.3, C.2.5).
inline constexpr unsigned kFIAdditionalData = 0x40;
inline constexpr unsigned kFIInitialVocabulary = 0x20;
inline constexpr unsigned kFIExternalVocabulary = 0x1000;

inline constexpr unsigned kFITerminator = 0xF0;
inline constexpr unsigned kFIDoubleTerminator = 0xFF;

/// How the length n of an octet string follows the first bits of an octet (C.22, C.23, C.24):
///
///     n - 1                                     up to `direct`
///     `byteForm`, then n - direct - 1           one octet, up to direct + 256
///     `wordForm`, then n - direct - 257         32 bits
struct FILengthCode {
  unsigned direct;
  unsigned byteForm;
  unsigned wordForm;
  unsigned mask;  // the bits of the octet that belong to the code
  const wchar* bit;
};

inline constexpr FILengthCode kFILengthBit2{64, 0x40, 0x60, 0x7F, u"second"};
inline constexpr FILengthCode kFILengthBit5{8, 0x08, 0x0C, 0x0F, u"fifth"};
inline constexpr FILengthCode kFILengthBit7{2, 0x02, 0x03, 0x03, u"seventh"};

/// How an index from 1 to 2^20 follows the first bits of an octet (C.25, C.27, C.28): up to
/// `direct` as index - 1; beyond it as `form` and the difference to the step's `base`, the high
/// part below the form, the rest in the following octets.
struct FIIndexStep {
  unsigned form;
  unsigned highMask;
  std::uint32_t base;
  unsigned octets;
};

struct FIIndexCode {
  unsigned direct;
  unsigned mask;
  std::size_t stepCount;
  FIIndexStep steps[3];
  const wchar* bit;
};

inline constexpr FIIndexCode kFIIndexBit2{
    64, 0x7F, 2, {{0x40, 0x1F, 65, 1}, {0x60, 0x1F, 8257, 2}, {}}, u"second"};
inline constexpr FIIndexCode kFIIndexBit3{
    32, 0x3F, 3, {{0x20, 0x07, 33, 1}, {0x28, 0x07, 2081, 2}, {0x30, 0x07, 526369, 3}}, u"third"};
inline constexpr FIIndexCode kFIIndexBit4{
    16, 0x1F, 3, {{0x10, 0x03, 17, 1}, {0x14, 0x03, 1041, 2}, {0x18, 0x03, 263185, 3}}, u"fourth"};

/// How an encoded string follows the first bits of an octet (C.19, C.20): two bits choose the form.
/// UTF-8 and UTF-16 are followed by the length; an alphabet or algorithm by its index - 1 in eight
/// bits, of which `shift` stand in the next octet in front of the length.
struct FIStringCode {
  unsigned formMask;
  unsigned utf16Form;
  unsigned alphabetForm;
  unsigned algorithmForm;
  unsigned shift;
  const FILengthCode* length;
};

inline constexpr FIStringCode kFIStringBit3{0x30, 0x10, 0x20, 0x30, 4, &kFILengthBit5};
inline constexpr FIStringCode kFIStringBit5{0x0C, 0x04, 0x08, 0x0C, 6, &kFILengthBit7};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_FASTINFOSET_CODES_H_
