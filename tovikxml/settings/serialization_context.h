#ifndef TOVIKXML_SETTINGS_SERIALIZATION_CONTEXT_H_
#define TOVIKXML_SETTINGS_SERIALIZATION_CONTEXT_H_

#include <cstdint>
#include <memory>
#include <vector>

#include "tovikxml/base/export.h"
#include "tovikxml/base/smart_ptr.h"
#include "tovikxml/base/wide_string.h"
#include "tovikxml/settings/namespace_alias_map.h"

namespace TovikXmlLib16 {

class CAttributeCol;
class CFastInfosetContext;
class CJsonContext;

/// Which namespace processing a document gets.
enum SchemaType : int {
  st_Namespaced = 0,
  st_NamespacedAlternate = 1,  ///< As `st_Namespaced`.
  /// XML text is parsed without namespaces, and only local names are compared.
  st_NoNamespaces = 2
};

/// The settings of one serialisation: how strict reading is, what output carries beside the
/// object, how it is laid out, and the limits on input.
///
///     CSerializationContext context;
///     context.SetIgnoreUnknownElements(true);
///     order->FromXml(text, context);
///
/// A context is a plain settings object; no call changes it, except that reading JSON in the modes
/// without namespaces (`jrt_Bare`, `jrt_Marked`) sets the flag of `SetIgnoreNamespaces` for the
/// length of the call.
///
/// Any number of threads may use one context at once, with its JSON and Fast Infoset settings, and
/// may copy it, as long as none changes it. Where they read JSON in those modes, the flag has to be
/// set before.
class TOVIKXML_EXPORT CSerializationContext {
 public:
  CSerializationContext();
  /// Copies every setting. The JSON and Fast Infoset settings are copied too, so that references to
  /// those of either context stay valid; the additional root attributes are shared with the source.
  CSerializationContext(const CSerializationContext& other);
  CSerializationContext& operator=(const CSerializationContext& other);
  virtual ~CSerializationContext();

  /// The one process-wide context, used where no other is given. A change is seen by all users.
  static CSerializationContext& GetDefaultContext();

  /// Blanks and tabs written once per level in formatted text; one tab by default. Null counts as
  /// empty. Any other character throws `CTovikInvalidParamException`.
  void SetIndentChars(const wchar* chars);
  WString GetIndentChars() const { return m_indentChars; }

  /// The default namespace that the root element declares; none if empty.
  void SetDefaultNamespaceURI(const wchar* uri);
  WString GetDefaultNamespaceURI() const { return m_defaultNamespaceUri; }
  /// The prefixes that the root element declares.
  const CNamespaceAliasMap& GetNamespaceAliases() const { return m_namespaceAliases; }
  CNamespaceAliasMap& GetNamespaceAliases() { return m_namespaceAliases; }
  /// Complete texts, with "<?" and "?>", written verbatim in front of the root.
  const std::vector<WString>& GetProcessingInstructions() const { return m_instructions; }
  std::vector<WString>& GetProcessingInstructions() { return m_instructions; }
  /// A text written verbatim inside the root's start tag.
  void SetInLineSchema(const wchar* text);
  WString GetInLineSchema() const { return m_inLineSchema; }
  /// Attributes written on the root element; any namespace is allowed.
  CSmartPtr<CAttributeCol> GetAdditionalRootAttributes() const;

  /// Whether `xsi:type` is written for an object in an element of another name than its class's.
  void SetWriteTypeAttribute(bool value) { m_writeTypeAttribute = value; }
  bool GetWriteTypeAttribute() const { return m_writeTypeAttribute; }
  /// Whether optional attributes with their default value are left out.
  void SetNoOptionalAttributeDefaultOutput(bool value) { m_noOptionalAttributeDefaults = value; }
  bool GetNoOptionalAttributeDefaultOutput() const { return m_noOptionalAttributeDefaults; }
  /// Whether an element with its default value carries its text; otherwise it is written empty.
  void SetWriteDefaultElementValues(bool value) { m_writeDefaultElementValues = value; }
  bool GetWriteDefaultElementValues() const { return m_writeDefaultElementValues; }

  /// @name What is let through
  /// Unknown elements and missing mandatory elements cannot be ignored both: the second setter to
  /// be given true throws `CTovikInvalidStateException`.
  /// @{
  void SetIgnoreUnknownElements(bool value);
  bool GetIgnoreUnknownElements() const { return m_ignoreUnknownElements; }
  void SetIgnoreMissingMandatoryElements(bool value);
  bool GetIgnoreMissingMandatoryElements() const { return m_ignoreMissingMandatoryElements; }
  void SetIgnoreUnknownAttributes(bool value) { m_ignoreUnknownAttributes = value; }
  bool GetIgnoreUnknownAttributes() const { return m_ignoreUnknownAttributes; }
  void SetIgnoreInvalidCollectionCounts(bool value) { m_ignoreInvalidCollectionCounts = value; }
  bool GetIgnoreInvalidCollectionCounts() const { return m_ignoreInvalidCollectionCounts; }
  void SetIgnoreMissingChoice(bool value) { m_ignoreMissingChoice = value; }
  bool GetIgnoreMissingChoice() const { return m_ignoreMissingChoice; }
  /// @}

  /// Whether only local names are compared while reading.
  void SetIgnoreNamespaces(bool value) {
    if (m_ignoreNamespaces != value) m_ignoreNamespaces = value;  // no write that threads could see
  }
  /// True as well if the schema type is `st_NoNamespaces`.
  bool GetIgnoreNamespaces() const { return m_ignoreNamespaces || m_schemaType == st_NoNamespaces; }
  void SetSchemaType(SchemaType type) { m_schemaType = type; }
  SchemaType GetSchemaType() const { return m_schemaType; }
  /// Whether the markers of CDATA sections are dropped while reading. With false they stay in the
  /// text, and a text that begins with one is written back unescaped.
  void SetStripCDATA(bool value) { m_stripCData = value; }
  bool GetStripCDATA() const { return m_stripCData; }

  /// The JSON settings, made with their defaults when first asked for; valid as long as the
  /// context.
  CJsonContext& GetJsonContext() const;
  /// The Fast Infoset settings, in the same way.
  CFastInfosetContext& GetFIContext() const;

  /// How deep objects may be nested in objects, in reading and in writing. Deeper input or deeper
  /// (or cyclic) objects end in `CTovikException` "The objects are nested deeper than the limit of
  /// %d levels". Every level takes stack, so raise it together with the stack of the thread.
  static constexpr int kDefaultMaxNesting = 256;
  void SetMaxNesting(int levels) { m_maxNesting = levels; }
  int GetMaxNesting() const { return m_maxNesting; }

  /// How many bytes compressed input may expand to; more ends in `CTovikException` "The
  /// decompressed data exceeds the limit of %llu bytes".
  static constexpr std::uint64_t kDefaultMaxDecompressedSize = std::uint64_t{1} << 30;
  void SetMaxDecompressedSize(std::uint64_t bytes) { m_maxDecompressedSize = bytes; }
  std::uint64_t GetMaxDecompressedSize() const { return m_maxDecompressedSize; }

  /// How many times its size compressed input may expand to, once it is beyond `kRatioFreeSize`
  /// bytes; more ends in `CTovikException` "The decompressed data exceeds the limit of %u times the
  /// compressed data". Markup that repeats seldom shrinks to less than a hundredth, a bomb to about
  /// a thousandth.
  static constexpr std::uint32_t kDefaultMaxDecompressionRatio = 1000;
  static constexpr std::uint64_t kRatioFreeSize = std::uint64_t{1} << 24;
  void SetMaxDecompressionRatio(std::uint32_t times) { m_maxDecompressionRatio = times; }
  std::uint32_t GetMaxDecompressionRatio() const { return m_maxDecompressionRatio; }

  /// How many entries each table of names and values may grow to while a Fast Infoset document is
  /// read; more ends in `CTovikException` "Failed to parse FastInfoset. A table exceeds the limit
  /// of %u entries." The format itself lets tables end at the default.
  static constexpr std::uint32_t kDefaultMaxTableEntries = std::uint32_t{1} << 20;
  void SetMaxTableEntries(std::uint32_t entries) { m_maxTableEntries = entries; }
  std::uint32_t GetMaxTableEntries() const { return m_maxTableEntries; }

  /// How many bytes of text, in its 16-bit form, a Fast Infoset document may expand to in names,
  /// values and content, since a few octets can refer to a long text again and again; more ends in
  /// `CTovikException` "Failed to parse FastInfoset. The text exceeds the limit of %llu bytes."
  static constexpr std::uint64_t kDefaultMaxExpandedText = std::uint64_t{1} << 30;
  void SetMaxExpandedText(std::uint64_t bytes) { m_maxExpandedText = bytes; }
  std::uint64_t GetMaxExpandedText() const { return m_maxExpandedText; }

 private:
  // Settings that are made with their defaults when they are first asked for. A copy has its own;
  // assignment changes what is there already in place.
  template <class T>
  class MadeOnDemand {
   public:
    MadeOnDemand();
    MadeOnDemand(const MadeOnDemand& other);
    MadeOnDemand& operator=(const MadeOnDemand& other);
    ~MadeOnDemand();
    T& Get() const;

   private:
    mutable std::unique_ptr<T> m_settings;
  };

  // A list that copies share once it is made.
  class RootAttributes {
   public:
    RootAttributes();
    RootAttributes(const RootAttributes& other);
    RootAttributes& operator=(const RootAttributes& other);
    ~RootAttributes();
    CSmartPtr<CAttributeCol> Get() const;

   private:
    CSmartPtr<CAttributeCol> GetIfMade() const;

    mutable CSmartPtr<CAttributeCol> m_attributes;
  };

  // Every member copies itself: a setting that is added here is copied with the rest.
  MadeOnDemand<CJsonContext> m_jsonContext;
  MadeOnDemand<CFastInfosetContext> m_fastInfosetContext;
  RootAttributes m_additionalRootAttributes;
  WString m_defaultNamespaceUri;
  CNamespaceAliasMap m_namespaceAliases;
  std::vector<WString> m_instructions;
  WString m_inLineSchema;
  WString m_indentChars{u"\t"};
  SchemaType m_schemaType = st_Namespaced;
  int m_maxNesting = kDefaultMaxNesting;
  std::uint64_t m_maxDecompressedSize = kDefaultMaxDecompressedSize;
  std::uint64_t m_maxExpandedText = kDefaultMaxExpandedText;
  std::uint32_t m_maxDecompressionRatio = kDefaultMaxDecompressionRatio;
  std::uint32_t m_maxTableEntries = kDefaultMaxTableEntries;
  bool m_writeTypeAttribute = true;
  bool m_noOptionalAttributeDefaults = false;
  bool m_writeDefaultElementValues = false;
  bool m_ignoreUnknownElements = false;
  bool m_ignoreMissingMandatoryElements = false;
  bool m_ignoreUnknownAttributes = false;
  bool m_ignoreInvalidCollectionCounts = false;
  bool m_ignoreMissingChoice = false;
  mutable bool m_ignoreNamespaces = false;  // reading JSON changes it for the length of the call
  bool m_stripCData = true;
};

}  // namespace TovikXmlLib16

#endif  // TOVIKXML_SETTINGS_SERIALIZATION_CONTEXT_H_
