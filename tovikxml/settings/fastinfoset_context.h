#ifndef TOVIKXML_SETTINGS_FASTINFOSET_CONTEXT_H_
#define TOVIKXML_SETTINGS_FASTINFOSET_CONTEXT_H_

#include <array>
#include <cstdint>
#include <utility>

#include "tovikxml/base/export.h"
#include "tovikxml/base/item_type.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/fastinfoset/vocabulary.h"

namespace TovikXmlLib16 {

/// The Fast Infoset settings of a `CSerializationContext`, reached through its `GetFIContext()`:
/// how each kind of value is encoded, up to which length values enter the tables, and which
/// vocabulary a document starts with.
///
///     context.GetFIContext().SetSuggestedValues();       // numbers, dates and bytes in few octets
///     CBinaryData bytes = order->ToFastInfosetStream(fid_None, context, Compression_None);
///
/// A new context writes every value as UTF-8. A document tells the encoding of each value itself,
/// so that reading needs the same vocabulary but no other setting.
class TOVIKXML_EXPORT CFastInfosetContext {
 public:
  /// As UTF-8, by the characters of an alphabet, or by an algorithm.
  enum EncodingKind : std::int32_t {
    ces_Default = 0,
    ces_RestrictedAlphabet = 1,
    ces_EncodingAlgorithm = 2
  };

  /// How one kind of value is written.
  struct EncodedCharacterString {
    EncodingKind kind = ces_Default;
    /// Of the alphabet: 1 "0123456789-+.e ", 2 "0123456789-:TZ "; or of the algorithm: 1 to 10, see
    /// `CFastInfosetBinaryData`.
    std::uint32_t index = 0;
  };

  CFastInfosetContext() = default;
  CFastInfosetContext(const CFastInfosetContext& other);
  CFastInfosetContext& operator=(const CFastInfosetContext& other) = default;
  ~CFastInfosetContext() = default;

  /// An attribute value enters the table, to be written as an index when it comes again, if it has
  /// fewer code units than this; 6 by default.
  unsigned long GetAttributeMaxAddLength() const { return m_attributeMaxAddLength; }
  void SetAttributeMaxAddLength(unsigned long length) { m_attributeMaxAddLength = length; }
  /// The same for the text of elements.
  unsigned long GetElementMaxAddLength() const { return m_elementMaxAddLength; }
  void SetElementMaxAddLength(unsigned long length) { m_elementMaxAddLength = length; }

  /// 0, for UTF-8.
  unsigned char GetDefaultStringEncoding() const { return m_defaultStringEncoding; }

  /// The encoding of the values of an `ItemType`, which the writer checks when it uses it. A number
  /// that is no `ItemType` throws `CTovikInvalidParamException`.
  EncodedCharacterString GetEncoding(unsigned long itemType) const;
  void SetEncoding(unsigned long itemType, EncodedCharacterString encoding);
  /// Sets a compact encoding for numbers, booleans, binary data, dates and times. Values that do
  /// not fit it are then refused on writing: dates and times with a fraction or an offset, and
  /// `it_ui8` above the signed range. Texts and the two lengths stay as they are.
  void SetSuggestedValues();

  /// Whether documents start from the vocabulary below and declare it by its URI.
  bool GetUseGeneratedVocabulary() const { return m_useGeneratedVocabulary; }
  void SetUseGeneratedVocabulary(bool use) { m_useGeneratedVocabulary = use; }
  /// Owned by the context. A document's own additions never reach it.
  CFIVocabulary* GetVocabulary() { return &m_vocabulary; }
  const CFIVocabulary* GetVocabulary() const { return &m_vocabulary; }
  /// What the writer declares; "urn:tovikxml:external-vocabulary" if it is empty. The reader
  /// compares it only with `SetReadInitialVocabulary`.
  WString GetExternalVocabularyURI() const { return m_externalVocabularyUri; }
  void SetExternalVocabularyURI(WString uri) { m_externalVocabularyUri = std::move(uri); }

  /// Whether a document's own initial vocabulary enters the tables, so that its indexes are read as
  /// the format has it (ITU-T X.891, 7.2); false by default, which drops it. The vocabulary above
  /// is then taken for a document that names its URI, and for no other. A document that names
  /// another one is refused: "Failed to parse FastInfoset. The external vocabulary [%s] is not
  /// known."
  bool GetReadInitialVocabulary() const { return m_readInitialVocabulary; }
  void SetReadInitialVocabulary(bool read) { m_readInitialVocabulary = read; }

  /// Whether a document that no XML text could say is refused, with "Failed to parse FastInfoset.
  /// ...": names and characters that XML has not, two attributes of one name, two roots, and octets
  /// behind the end; false by default.
  bool GetRequireWellFormed() const { return m_requireWellFormed; }
  void SetRequireWellFormed(bool require) { m_requireWellFormed = require; }

  /// Whether local names carry their prefixes, as in "p:item" beside the namespace of p, and the
  /// declarations of prefixes are attributes "xmlns:p" and "xmlns" of the namespace
  /// "http://www.w3.org/2000/xmlns/"; false by default. Reading then keeps every declaration where
  /// it stands, and a writer takes them in front of the other attributes of an element. It is for
  /// programs that write without a generated class and keep the prefixes of a document.
  bool GetQualifiedNames() const { return m_qualifiedNames; }
  void SetQualifiedNames(bool qualified) { m_qualifiedNames = qualified; }

 private:
  unsigned char m_defaultStringEncoding = 0;
  std::array<EncodedCharacterString, it_xmlCollection + 1> m_encodings{};
  unsigned long m_attributeMaxAddLength = 6;
  unsigned long m_elementMaxAddLength = 6;
  bool m_useGeneratedVocabulary = false;
  bool m_readInitialVocabulary = false;
  bool m_requireWellFormed = false;
  bool m_qualifiedNames = false;
  CFIVocabulary m_vocabulary;
  WString m_externalVocabularyUri;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_SETTINGS_FASTINFOSET_CONTEXT_H_
