import com.sun.xml.fastinfoset.Encoder;
import com.sun.xml.fastinfoset.dom.DOMDocumentParser;
import com.sun.xml.fastinfoset.dom.DOMDocumentSerializer;
import com.sun.xml.fastinfoset.sax.SAXDocumentParser;
import com.sun.xml.fastinfoset.sax.SAXDocumentSerializer;
import java.io.ByteArrayOutputStream;
import java.io.File;
import java.io.FileInputStream;
import java.io.FileOutputStream;
import java.io.InputStream;
import java.io.OutputStream;
import java.util.Base64;
import java.util.HashMap;
import java.util.Map;
import java.util.UUID;
import javax.xml.namespace.QName;
import javax.xml.parsers.DocumentBuilderFactory;
import javax.xml.parsers.SAXParserFactory;
import javax.xml.transform.Source;
import javax.xml.transform.TransformerFactory;
import javax.xml.transform.dom.DOMSource;
import javax.xml.transform.sax.SAXSource;
import javax.xml.transform.stream.StreamResult;
import org.jvnet.fastinfoset.EncodingAlgorithmIndexes;
import org.jvnet.fastinfoset.ExternalVocabulary;
import org.jvnet.fastinfoset.RestrictedAlphabet;
import org.jvnet.fastinfoset.Vocabulary;
import org.jvnet.fastinfoset.sax.helpers.EncodingAlgorithmAttributesImpl;
import org.w3c.dom.Document;
import org.xml.sax.Attributes;
import org.xml.sax.InputSource;
import org.xml.sax.SAXException;
import org.xml.sax.XMLReader;
import org.xml.sax.ext.DefaultHandler2;

/**
 * Takes documents between XML text and Fast Infoset through the independent implementation. The
 * arguments come in threes: what to do, the file to read, the file to write.
 *
 * <pre>
 * decode-sax, decode-dom        Fast Infoset to XML text, through one of the two parsers
 * encode-utf8, encode-utf16     XML text to Fast Infoset, with character strings in that encoding
 * encode-indexed                the same, with values of up to 60 characters in the tables
 * encode-dom                    the same, from a tree
 * encode-typed:NAME=KIND,...    the same, with the values of the elements and attributes of those
 *                               local names in an encoding algorithm or alphabet
 * decode-external, encode-external  with the vocabulary "urn:interop:vocabulary" below
 * </pre>
 */
public final class FastInfosetPeer {
  public static void main(String[] args) throws Exception {
    for (int i = 0; i + 2 < args.length; i += 3) {
      try (InputStream in = new FileInputStream(args[i + 1])) {
        ByteArrayOutputStream out = new ByteArrayOutputStream();
        run(args[i], in, out);
        try (OutputStream file = new FileOutputStream(args[i + 2])) {
          out.writeTo(file);
        }
      } catch (Exception e) {
        System.out.println(args[i] + " of " + new File(args[i + 1]).getName() + ": " + e);
        System.exit(1);
      }
    }
  }

  private static void run(String mode, InputStream in, OutputStream out) throws Exception {
    String[] parts = mode.split(":", 2);
    switch (parts[0]) {
      case "decode-sax":
        writeXml(new SAXSource(new SAXDocumentParser(), new InputSource(in)), out);
        break;
      case "decode-external":
        SAXDocumentParser parser = new SAXDocumentParser();
        parser.setExternalVocabularies(Map.of(sharedVocabulary().URI, sharedVocabulary()));
        writeXml(new SAXSource(parser, new InputSource(in)), out);
        break;
      case "decode-dom":
        Document document = documentBuilders().newDocumentBuilder().newDocument();
        new DOMDocumentParser().parse(document, in);
        writeXml(new DOMSource(document), out);
        break;
      case "encode-dom":
        DOMDocumentSerializer fromTree = new DOMDocumentSerializer();
        fromTree.setOutputStream(out);
        fromTree.serialize(documentBuilders().newDocumentBuilder().parse(in));
        break;
      case "encode-utf8":
        encode(in, out, new SAXDocumentSerializer());
        break;
      case "encode-utf16":
        SAXDocumentSerializer wide = new SAXDocumentSerializer();
        wide.setCharacterEncodingScheme(Encoder.UTF_16BE);
        encode(in, out, wide);
        break;
      case "encode-indexed":
        SAXDocumentSerializer indexed = new SAXDocumentSerializer();
        indexed.setMaxCharacterContentChunkSize(60);
        indexed.setMaxAttributeValueSize(60);
        encode(in, out, indexed);
        break;
      case "encode-external":
        SAXDocumentSerializer external = new SAXDocumentSerializer();
        external.setExternalVocabulary(sharedVocabulary());
        encode(in, out, external);
        break;
      case "encode-typed":
        SAXDocumentSerializer typed = new SAXDocumentSerializer();
        typed.setOutputStream(out);
        Map<String, String> kinds = new HashMap<>();
        for (String pair : parts[1].split(",")) kinds.put(pair.split("=")[0], pair.split("=")[1]);
        parse(in, new TypedValues(typed, kinds));
        break;
      default:
        throw new IllegalArgumentException(mode);
    }
  }

  /**
   * The order of the entries gives the indexes, and the tests fill theirs alike. No name in a
   * namespace is among them, since ParserVocabulary gives it an index of a namespace under which
   * the parser finds it out of scope.
   */
  @SuppressWarnings("unchecked")
  private static ExternalVocabulary sharedVocabulary() {
    Vocabulary vocabulary = new Vocabulary();
    vocabulary.namespaceNames.add("urn:example:bench:orders");
    vocabulary.localNames.add("orders");
    vocabulary.localNames.add("item");
    vocabulary.attributes.add(new QName("sku"));
    vocabulary.attributeValues.add("042-AB7");
    vocabulary.characterContentChunks.add("true");
    return new ExternalVocabulary("urn:interop:vocabulary", vocabulary);
  }

  private static DocumentBuilderFactory documentBuilders() throws Exception {
    DocumentBuilderFactory factory = DocumentBuilderFactory.newInstance();
    factory.setNamespaceAware(true);
    factory.setFeature("http://apache.org/xml/features/nonvalidating/load-external-dtd", false);
    return factory;
  }

  private static void writeXml(Source source, OutputStream out) throws Exception {
    TransformerFactory.newInstance().newTransformer().transform(source, new StreamResult(out));
  }

  private static void encode(InputStream in, OutputStream out, SAXDocumentSerializer serializer)
      throws Exception {
    serializer.setOutputStream(out);
    SAXParserFactory factory = parsers();
    XMLReader reader = factory.newSAXParser().getXMLReader();
    reader.setProperty("http://xml.org/sax/properties/lexical-handler", serializer);
    reader.setContentHandler(serializer);
    reader.parse(new InputSource(in));
  }

  private static void parse(InputStream in, DefaultHandler2 handler) throws Exception {
    parsers().newSAXParser().parse(in, handler);
  }

  private static SAXParserFactory parsers() throws Exception {
    SAXParserFactory factory = SAXParserFactory.newInstance();
    factory.setNamespaceAware(true);
    factory.setFeature("http://apache.org/xml/features/nonvalidating/load-external-dtd", false);
    return factory;
  }

  /** Passes a document on to a serializer, with some of its values as what they mean. */
  private static final class TypedValues extends DefaultHandler2 {
    private final SAXDocumentSerializer out;
    private final Map<String, String> kinds;
    private final StringBuilder text = new StringBuilder();

    TypedValues(SAXDocumentSerializer out, Map<String, String> kinds) {
      this.out = out;
      this.kinds = kinds;
    }

    @Override
    public void startDocument() throws SAXException {
      out.startDocument();
    }

    @Override
    public void endDocument() throws SAXException {
      out.endDocument();
    }

    @Override
    public void startPrefixMapping(String prefix, String uri) throws SAXException {
      out.startPrefixMapping(prefix, uri);
    }

    @Override
    public void startElement(String uri, String name, String qName, Attributes attributes)
        throws SAXException {
      writeText(null);
      EncodingAlgorithmAttributesImpl typed = new EncodingAlgorithmAttributesImpl();
      for (int i = 0; i < attributes.getLength(); ++i) addAttribute(typed, attributes, i);
      out.startElement(uri, name, qName, typed);
    }

    @Override
    public void endElement(String uri, String name, String qName) throws SAXException {
      writeText(kinds.get(name));
      out.endElement(uri, name, qName);
    }

    @Override
    public void characters(char[] chars, int start, int length) {
      text.append(chars, start, length);
    }

    private void addAttribute(EncodingAlgorithmAttributesImpl typed, Attributes all, int i) {
      String kind = kinds.getOrDefault(all.getLocalName(i), "");
      String alphabet = kind.equals("numeric") ? RestrictedAlphabet.NUMERIC_CHARACTERS
          : kind.equals("dateTime") ? RestrictedAlphabet.DATE_TIME_CHARACTERS : null;
      // The peer would write half of the octets of a hexadecimal attribute.
      if (algorithm(kind) >= 0 && !kind.equals("hex")) {
        typed.addAttributeWithBuiltInAlgorithmData(all.getURI(i), all.getLocalName(i),
            all.getQName(i), algorithm(kind), parse(kind, all.getValue(i)));
      } else {
        typed.addAttribute(all.getURI(i), all.getLocalName(i), all.getQName(i), "CDATA",
            all.getValue(i), false, alphabet);
      }
    }

    private void writeText(String kind) throws SAXException {
      if (text.length() == 0) return;
      String value = text.toString();
      char[] chars = value.toCharArray();
      text.setLength(0);
      if (kind == null) {
        out.characters(chars, 0, chars.length);
      } else if (kind.equals("numeric")) {
        out.numericCharacters(chars, 0, chars.length);
      } else if (kind.equals("dateTime")) {
        out.dateTimeCharacters(chars, 0, chars.length);
      } else if (kind.equals("cdata")) {
        out.startCDATA();
        out.characters(chars, 0, chars.length);
        out.endCDATA();
      } else if (kind.equals("hex")) {
        // As octets: as an object, the peer would write but half of them.
        byte[] octets = (byte[]) parse(kind, value);
        out.octets(null, algorithm(kind), octets, 0, octets.length);
      } else {
        out.object(null, algorithm(kind), parse(kind, value));
      }
    }

    private static int algorithm(String kind) {
      switch (kind) {
        case "hex": return EncodingAlgorithmIndexes.HEXADECIMAL;
        case "base64": return EncodingAlgorithmIndexes.BASE64;
        case "short": return EncodingAlgorithmIndexes.SHORT;
        case "int": return EncodingAlgorithmIndexes.INT;
        case "long": return EncodingAlgorithmIndexes.LONG;
        case "boolean": return EncodingAlgorithmIndexes.BOOLEAN;
        case "float": return EncodingAlgorithmIndexes.FLOAT;
        case "double": return EncodingAlgorithmIndexes.DOUBLE;
        case "uuid": return EncodingAlgorithmIndexes.UUID;
        default: return -1;
      }
    }

    private static Object parse(String kind, String text) {
      if (kind.equals("base64")) return Base64.getDecoder().decode(text);
      if (kind.equals("hex")) {
        byte[] octets = new byte[text.length() / 2];
        for (int i = 0; i < octets.length; ++i) {
          octets[i] = (byte) Integer.parseInt(text.substring(2 * i, 2 * i + 2), 16);
        }
        return octets;
      }
      String[] words = text.trim().split("\\s+");
      int n = words.length;
      short[] shorts = new short[n];
      int[] ints = new int[n];
      long[] longs = new long[n];
      boolean[] booleans = new boolean[n];
      float[] floats = new float[n];
      double[] doubles = new double[n];
      long[] uuids = new long[2 * n];
      for (int i = 0; i < n; ++i) {
        switch (kind) {
          case "short": shorts[i] = Short.parseShort(words[i]); break;
          case "int": ints[i] = Integer.parseInt(words[i]); break;
          case "long": longs[i] = Long.parseLong(words[i]); break;
          case "boolean": booleans[i] = Boolean.parseBoolean(words[i]); break;
          case "float": floats[i] = Float.parseFloat(words[i]); break;
          case "double": doubles[i] = Double.parseDouble(words[i]); break;
          default:
            uuids[2 * i] = UUID.fromString(words[i]).getMostSignificantBits();
            uuids[2 * i + 1] = UUID.fromString(words[i]).getLeastSignificantBits();
        }
      }
      switch (kind) {
        case "short": return shorts;
        case "int": return ints;
        case "long": return longs;
        case "boolean": return booleans;
        case "float": return floats;
        case "double": return doubles;
        default: return uuids;
      }
    }
  }
}
