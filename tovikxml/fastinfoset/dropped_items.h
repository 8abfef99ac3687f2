#ifndef TOVIKXML_FASTINFOSET_DROPPED_ITEMS_H_
#define TOVIKXML_FASTINFOSET_DROPPED_ITEMS_H_

#include "tovikxml/fastinfoset/octet_input.h"

/// The parts of a document that have no place in the tree. They are read for their lengths, and
/// their texts are not decoded. Internal.
namespace TovikXmlLib16 {

/// An octet string behind a padding bit.
void SkipOctetString(CFIOctetInput& input);
/// A value behind two padding bits.
void SkipEncodedString(CFIOctetInput& input);

// The optional components of the header (ITU-T X.891, C.2.3 to C.2.10), of which the octet of
// presence bits tells which are there.

void SkipAdditionalData(CFIOctetInput& input);
void SkipInitialVocabulary(CFIOctetInput& input);
void SkipComponentsBehindVocabulary(CFIOctetInput& input, unsigned presence);

// Each is called behind its identification, from which it takes what is present.

void SkipProcessingInstruction(CFIOctetInput& input);
void SkipComment(CFIOctetInput& input);
/// The two identifiers of a document type or an entity, if they are there.
void SkipExternalIdentifiers(CFIOctetInput& input, unsigned identification);

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_FASTINFOSET_DROPPED_ITEMS_H_
