#include "tovikxml/fastinfoset/dropped_items.h"

namespace TovikXmlLib16 {
namespace {

using SkipItem = void (*)(CFIOctetInput&);

void SkipIdentifyingString(CFIOctetInput& input) {
  const unsigned octet = input.ReadOctet();
  if (octet >= 0x80) {
    input.ReadIndex(kFIIndexBit2, octet);
  } else {
    input.ReadString(kFILengthBit2, octet);
  }
}

void SkipEncodedStringBehind(CFIOctetInput& input, unsigned octet) {
  const FIStringCode& code = kFIStringBit3;
  const unsigned form = octet & code.formMask;
  if (form == code.alphabetForm || form == code.algorithmForm) octet = input.ReadOctet();
  input.ReadString(*code.length, octet);
}

void SkipStringOrIndex(CFIOctetInput& input) {
  const unsigned octet = input.ReadOctet();
  if (octet >= 0x80) {
    input.ReadIndexOrZero(octet);
  } else {
    SkipEncodedStringBehind(input, octet);
  }
}

void SkipIndex(CFIOctetInput& input) {
  input.ReadIndex(kFIIndexBit2, input.ReadOctet());
}

void SkipNameSurrogate(CFIOctetInput& input) {
  const unsigned octet = input.ReadOctet();
  if (octet & 0x02) SkipIndex(input);
  if (octet & 0x01) SkipIndex(input);
  SkipIndex(input);
}

void SkipAdditionalDatum(CFIOctetInput& input) {
  SkipOctetString(input);  // the URI that tells what it is
  SkipOctetString(input);
}

void SkipSequence(CFIOctetInput& input, SkipItem skip) {
  for (std::uint32_t left = input.ReadSequenceLength(); left > 0; --left) skip(input);
}

// The lists of an initial vocabulary in the order of their presence bits, the highest first.
constexpr SkipItem kVocabularyLists[] = {
    SkipOctetString,    // restricted alphabets
    SkipOctetString,    // encoding algorithms
    SkipOctetString,    // prefixes
    SkipOctetString,    // namespace names
    SkipOctetString,    // local names
    SkipOctetString,    // other names
    SkipOctetString,    // other URIs
    SkipEncodedString,  // attribute values
    SkipEncodedString,  // character chunks
    SkipEncodedString,  // other strings
    SkipNameSurrogate,  // element names
    SkipNameSurrogate,  // attribute names
};

// A name and, by the two low bits, two more identifiers.
void SkipIdentifiers(CFIOctetInput& input, unsigned identification) {
  SkipIdentifyingString(input);
  SkipExternalIdentifiers(input, identification);
}

void SkipNotations(CFIOctetInput& input) {
  unsigned octet = input.ReadOctet();
  for (; (octet & 0xFC) == 0xC0; octet = input.ReadOctet()) SkipIdentifiers(input, octet);
  if (octet != kFITerminator) ThrowParseFailure(u"Invalid Encoding of Notation type.");
}

void SkipUnparsedEntities(CFIOctetInput& input) {
  unsigned octet = input.ReadOctet();
  for (; (octet & 0xFE) == 0xD0; octet = input.ReadOctet()) {
    SkipIdentifyingString(input);                    // name
    SkipIdentifyingString(input);                    // system identifier
    if (octet & 0x01) SkipIdentifyingString(input);  // public identifier
    SkipIdentifyingString(input);                    // notation
  }
  if (octet != kFITerminator) ThrowParseFailure(u"Invalid Encoding of Unparsed Entity type.");
}

}  // namespace

void SkipOctetString(CFIOctetInput& input) {
  input.ReadString(kFILengthBit2, input.ReadOctet());
}

void SkipEncodedString(CFIOctetInput& input) {
  SkipEncodedStringBehind(input, input.ReadOctet());
}

void SkipAdditionalData(CFIOctetInput& input) {
  SkipSequence(input, SkipAdditionalDatum);
}

void SkipInitialVocabulary(CFIOctetInput& input) {
  unsigned bit = kFIExternalVocabulary;
  const unsigned presence = input.ReadBigEndian(2);
  if (presence & bit) SkipOctetString(input);
  for (const SkipItem skip : kVocabularyLists) {
    bit >>= 1;
    if (presence & bit) SkipSequence(input, skip);
  }
}

void SkipComponentsBehindVocabulary(CFIOctetInput& input, unsigned presence) {
  if (presence & 0x10) SkipNotations(input);
  if (presence & 0x08) SkipUnparsedEntities(input);
  if (presence & 0x04) SkipOctetString(input);    // character encoding scheme
  if (presence & 0x02) input.ReadOctet();         // standalone
  if (presence & 0x01) SkipStringOrIndex(input);  // version
}

void SkipProcessingInstruction(CFIOctetInput& input) {
  SkipIdentifyingString(input);
  SkipStringOrIndex(input);
}

void SkipComment(CFIOctetInput& input) {
  SkipStringOrIndex(input);
}

void SkipExternalIdentifiers(CFIOctetInput& input, unsigned identification) {
  if (identification & 0x02) SkipIdentifyingString(input);
  if (identification & 0x01) SkipIdentifyingString(input);
}

}  // namespace TovikXmlLib16
