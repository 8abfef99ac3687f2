// The other side of the exchange: tells what it reads in the files out-*.fi of a folder, and writes
// files in-*.fi with what is to be read in them. Each document has a text beside it, which tells the
// tree in one line.
//
//   java -cp FastInfoset.jar Bridge.java FOLDER

import com.sun.xml.fastinfoset.sax.SAXDocumentParser;
import com.sun.xml.fastinfoset.sax.SAXDocumentSerializer;
import java.io.File;
import java.io.FileInputStream;
import java.io.FileOutputStream;
import java.io.InputStream;
import java.io.OutputStream;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import org.xml.sax.Attributes;
import org.xml.sax.helpers.AttributesImpl;
import org.xml.sax.helpers.DefaultHandler;

public class Bridge {
  // Text of an element stands in front of its children, wherever it comes.
  static class Teller extends DefaultHandler {
    static class Element {
      StringBuilder head = new StringBuilder();
      StringBuilder text = new StringBuilder();
      StringBuilder children = new StringBuilder();

      String tell() {
        return head + (text.length() == 0 ? "" : "'" + text + "'") + children;
      }
    }

    java.util.ArrayDeque<Element> open = new java.util.ArrayDeque<>();
    String result;

    static String qualified(String uri, String name) {
      return uri == null || uri.isEmpty() ? name : "{" + uri + "}" + name;
    }

    @Override
    public void startElement(String uri, String local, String name, Attributes attributes) {
      Element element = new Element();
      element.head.append(qualified(uri, local));
      for (int i = 0; i < attributes.getLength(); ++i) {
        element.head.append(" ").append(qualified(attributes.getURI(i), attributes.getLocalName(i)));
        element.head.append("=").append(attributes.getValue(i));
      }
      open.push(element);
    }

    @Override
    public void endElement(String uri, String local, String name) {
      String told = open.pop().tell();
      if (open.isEmpty()) {
        result = told;
      } else {
        open.peek().children.append("(").append(told).append(")");
      }
    }

    @Override
    public void characters(char[] text, int start, int length) {
      open.peek().text.append(text, start, length);
    }
  }

  static void tell(File file) throws Exception {
    Teller teller = new Teller();
    SAXDocumentParser parser = new SAXDocumentParser();
    parser.setContentHandler(teller);
    String told;
    try (InputStream in = new FileInputStream(file)) {
      parser.parse(in);
      told = teller.result;
    } catch (Exception e) {
      told = "refused: " + e;
    }
    File out = new File(file.getPath().replace(".fi", ".txt"));
    Files.write(out.toPath(), told.getBytes(StandardCharsets.UTF_8));
  }

  interface Steps {
    void write(SAXDocumentSerializer serializer) throws Exception;
  }

  static void write(File folder, String name, String told, boolean utf16, Steps steps)
      throws Exception {
    SAXDocumentSerializer serializer = new SAXDocumentSerializer();
    if (utf16) serializer.setCharacterEncodingScheme("UTF-16BE");
    try (OutputStream out = new FileOutputStream(new File(folder, name + ".fi"))) {
      serializer.setOutputStream(out);
      serializer.startDocument();
      steps.write(serializer);
      serializer.endDocument();
    }
    Files.write(new File(folder, name + ".txt").toPath(), told.getBytes(StandardCharsets.UTF_8));
  }

  static final AttributesImpl NONE = new AttributesImpl();

  static void element(SAXDocumentSerializer s, String name, Steps content) throws Exception {
    s.startElement("", name, name, NONE);
    content.write(s);
    s.endElement("", name, name);
  }

  static void text(SAXDocumentSerializer s, String text) throws Exception {
    s.characters(text.toCharArray(), 0, text.length());
  }

  static void comment(SAXDocumentSerializer s, String text) throws Exception {
    s.comment(text.toCharArray(), 0, text.length());
  }

  public static void main(String[] arguments) throws Exception {
    File folder = new File(arguments[0]);
    for (File file : folder.listFiles()) {
      if (file.getName().matches("out-.*\\.fi")) tell(file);
    }
    for (boolean utf16 : new boolean[] {false, true}) {
      write(folder, "in-mixed" + utf16, "a'x\u00e9\u20acy'(b'z')(b'z')", utf16, s -> {
        comment(s, "front");
        s.processingInstruction("target", "data");
        element(s, "a", t -> {
          text(t, "x\u00e9");
          comment(t, "front");
          text(t, "\u20ac");
          t.processingInstruction("target", "");
          element(t, "b", u -> text(u, "z"));
          text(t, "y");
          element(t, "b", u -> text(u, "z"));
        });
        comment(s, "behind");
      });
    }
    write(folder, "in-typed",
        "a'1 -2 3'(b'-7')(b'9000000000')(b'true false true')(b'AAEC')(b'12.5')(b'2001-01-31')(b'abba')",
        false, s -> element(s, "a", t -> {
          t.ints(new int[] {1, -2, 3}, 0, 3);
          element(t, "b", u -> u.shorts(new short[] {-7}, 0, 1));
          element(t, "b", u -> u.longs(new long[] {9000000000L}, 0, 1));
          element(t, "b", u -> u.booleans(new boolean[] {true, false, true}, 0, 3));
          element(t, "b", u -> u.bytes(new byte[] {0, 1, 2}, 0, 3));
          element(t, "b", u -> u.numericCharacters("12.5".toCharArray(), 0, 4));
          element(t, "b", u -> u.dateTimeCharacters("2001-01-31".toCharArray(), 0, 10));
          element(t, "b", u -> text(u, "abba"));
        }));
    StringBuilder told = new StringBuilder("{urn:x}a");
    for (int i = 0; i < 3000; ++i) {
      int n = i % 1500;
      told.append("({urn:x}n" + n + " {urn:x}k" + n + "=v" + n + "'t" + n + "')");
    }
    write(folder, "in-indexed", told.toString(), false, s -> {
      s.startPrefixMapping("p", "urn:x");
      s.startElement("urn:x", "a", "p:a", NONE);
      for (int i = 0; i < 3000; ++i) {
        int n = i % 1500;
        AttributesImpl attributes = new AttributesImpl();
        attributes.addAttribute("urn:x", "k" + n, "p:k" + n, "CDATA", "v" + n);
        s.startElement("urn:x", "n" + n, "p:n" + n, attributes);
        text(s, "t" + n);
        s.endElement("urn:x", "n" + n, "p:n" + n);
      }
      s.endElement("urn:x", "a", "p:a");
      s.endPrefixMapping("p");
    });
  }
}
