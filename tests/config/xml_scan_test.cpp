// The quick scan beside the plain rules, on documents made up at random: whatever the processor and wherever the pieces
// of a text end, the same is found.
#include "config/xml_scan.h"

#include "base/utf8.h"
#include "config/bracket_reader.h"
#include "tests/config/xml_reference.h"
#include "tests/printing.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>

namespace config {
namespace {

ReferenceScan Scan(BracketReader& brackets) {
  BlockList<XmlElement> elements;
  elements.Add() = {};
  ReferenceScan scan;
  scan.result = ScanElements(brackets, elements);
  for (std::size_t i = 0; i < elements.Size(); ++i) scan.elements.push_back(elements[i]);
  return scan;
}

// Nothing, or what is different.
std::string Difference(const ReferenceScan& expected, const ReferenceScan& found) {
  if (expected.result.error != found.result.error) return "another error";
  if (expected.result.element != found.result.element) return "an error in another element";
  if (expected.result.at != found.result.at) return "an error at another place";
  if (expected.elements.size() != found.elements.size()) return "another number of elements";
  for (std::size_t i = 0; i < expected.elements.size(); ++i) {
    if (std::memcmp(&expected.elements[i], &found.elements[i], sizeof(XmlElement)) != 0) {
      return "another element " + std::to_string(i);
    }
  }
  return "";
}

void ExpectTheRules(const std::string& bytes) {
  const WideString text = base::FromUtf8(bytes);
  const ReferenceScan expected = ScanByTheRules(text);
  for (const TextBlocks* const blocks : UsableTextBlocks()) {
    const Utf8Text unread(bytes);
    BracketReader converting(unread, *blocks);
    ASSERT_EQ("", Difference(expected, Scan(converting))) << blocks->name << ":\n" << bytes;
    converting.ReadAll();
    ASSERT_EQ(text, converting.Text()) << blocks->name << ":\n" << bytes;
    const SharedText whole(text);
    BracketReader reading(whole.View(), *blocks);
    ASSERT_EQ("", Difference(expected, Scan(reading))) << blocks->name << ", converted before:\n" << bytes;
  }
}

class RandomDocument {
 public:
  explicit RandomDocument(unsigned seed) : random_(seed) {}

  // Well formed but for what `oddity` in a thousand parts are.
  std::string Make(std::size_t parts, unsigned oddity) {
    oddity_ = oddity;
    text_ = Below(3) == 0 ? "\xEF\xBB\xBF<?xml version='1.0'?>\n" : "";
    if (Below(4) == 0) Node();
    Element(parts);
    if (Below(2) == 0) text_ += "\n<behind/>";
    return text_;
  }

 private:
  unsigned Below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

  template <std::size_t N>
  const char* OneOf(const char* const (&choices)[N]) {
    return choices[Below(N)];
  }

  void Element(std::size_t parts) {
    const std::string name = OneOf({"a", "Type", "OID", "GROUP", "fifteen_units15", "sixteen_units_16",
                                    "seventeen_units_1", "with-hyphen.dot", "\xC3\xBC\xE4\xB8\xAD", "x[1"});
    text_ += OneOf({"<", "<", "<", "<", "< ", "<\n\t"}) + name;
    text_ += OneOf({"", "", "", " name=\"x\"", " name='a>b'", " name=\"<\"", " a=1 b = '2'\n", " ", "\t"});
    if (Below(8) == 0) {
      text_ += "/>";
      return;
    }
    text_ += '>';
    while (parts > 1) {
      const std::size_t share = 1 + Below(static_cast<unsigned>(parts));
      Part(share);
      parts -= std::min(share, parts);
    }
    Text();
    text_ += OneOf({"</", "</", "</", "</", "</ ", "< /"}) + name;
    text_ += OneOf({">", ">", ">", ">", " >", " \">\" x>", "\n>"});
  }

  void Part(std::size_t parts) {
    if (Below(1000) < oddity_)
      text_ += OneOf(
          {"<", ">", "\"", "'", "</", "<!", "<?", "]]>", "-->", "&", "<\"x\">", "<!-- ", "<>", "</>", "=", "\\", "/"});
    switch (Below(6)) {
      case 0: Text(); break;
      case 1: Node(); break;
      default: Element(parts); break;
    }
  }

  void Node() {
    constexpr struct {
      const char* start;
      const char* end;
    } kNodes[] = {{"<!-- <a> ' ", " -->"},
                  {"<![CDATA[ </a> \" ", " ]]>"},
                  {"<?p <a> ", " ?>"},
                  {"<!DOCTYPE a [ <!-- ' --> <?x \" ?> ] '>' ", ">"},
                  {"< !ELEMENT ", ">"}};
    const auto& node = kNodes[Below(std::size(kNodes))];
    text_ += node.start;
    Text();
    text_ += node.end;
  }

  void Text() {
    for (unsigned i = Below(12) == 0 ? Below(400) : Below(6); i > 0; --i) {
      text_ += OneOf({"text", " ", "\n", "1.3.6", "&lt;", "\xC3\xA4", "\xD0\x9F\xD0\xBE\xD1\x80",
                      "\xE4\xB8\xAD\xE6\x96\x87", "\xF0\x9F\x98\x80", "some plain text of a line",
                      "a line that is longer than the blocks of a text are, and plain"});
      if (Below(1000) < oddity_) text_ += static_cast<char>(random_());
    }
  }

  std::mt19937 random_;
  unsigned oddity_ = 0;
  std::string text_;
};

TEST(XmlScan, SmallDocumentsAreReadByTheRules) {
  RandomDocument random(1);
  int wellFormed = 0;
  constexpr int kRounds = 3000;
  for (int round = 0; round < kRounds; ++round) {
    const std::string bytes = random.Make(1 + static_cast<std::size_t>(round) % 40, round % 3 == 0 ? 0 : 30);
    ExpectTheRules(bytes);
    ExpectTheRules(bytes.substr(0, bytes.size() * 2 / 3));
    if (ScanByTheRules(base::FromUtf8(bytes)).result.error == XmlError::kNone) ++wellFormed;
    if (testing::Test::HasFatalFailure()) return;
  }
  EXPECT_LT(kRounds / 3, wellFormed);  // the documents are what they are meant to be
  EXPECT_GT(kRounds * 9 / 10, wellFormed);
}

TEST(XmlScan, DocumentsOfManyPiecesAreReadByTheRules) {
  RandomDocument random(2);
  std::size_t longest = 0;
  for (int round = 0; round < 60; ++round) {
    const std::string bytes = random.Make(1500, round % 2 == 0 ? 0 : 1);
    longest = std::max(longest, bytes.size());
    ExpectTheRules(bytes);
    if (testing::Test::HasFatalFailure()) return;
  }
  EXPECT_LT(50'000u, longest);
}

// Whatever stands there, the border between two pieces of a text is one of its places.
TEST(XmlScan, EveryMarkupMayStandAcrossABorderOfPieces) {
  const std::string markups[] = {
      "<a x='1'>\xC3\xA4\xE4\xB8\xAD</a>",
      "<a>x</a><b/><!-- <c> --><![CDATA[</a>]]><?p > ?>",
      "<!DOCTYPE a [ <!-- ' --> <?x \" ?> ] '>' >",
      "< a ></ a \">\" x >",
      "<a><!-- not closed",
      "<a></b>",
      "\xF0\x9F\x98\x80\xE4\xB8<a>\xFF</a>",
  };
  constexpr std::size_t kPiece = 4096;
  for (const std::string& markup : markups) {
    for (std::size_t before = 0; before <= markup.size(); ++before) {
      const std::string start = "<r>" + std::string(kPiece - 3 - before, ' ');
      for (const char* const end : {"</r>", "<i>x</i></r>", ""}) {
        ExpectTheRules(start + markup + end);
        ExpectTheRules("<r>\xC3\xA4" + start.substr(3) + markup + end);
        if (testing::Test::HasFatalFailure()) return;
      }
    }
  }
}

// What is longer than a piece itself.
TEST(XmlScan, MarkupOfAnyLengthIsRead) {
  const std::string inside(20'000, 'x');
  const std::string brackets(3 * 20'000, '<');
  for (const std::string& part :
       {"<!--" + inside + "-->", "<!--" + brackets + "-->", "<a b='" + inside + "'></a>", "<a" + brackets + "/>",
        "<" + inside + "></" + inside + ">", "<a></a " + inside + ">", "<a></a '" + brackets + ">'>",
        "<a>" + inside + "</a>", "<" + std::string(20'000, ' ') + "a/>"}) {
    ExpectTheRules("<r>" + part + "<b>x</b>" + part + "</r>");
    ExpectTheRules("<r>" + part.substr(0, part.size() - 3));
    if (testing::Test::HasFatalFailure()) return;
  }
}

TEST(BracketReader, GivesEveryBracketOfAnyBytes) {
  std::mt19937 random(3);
  const char usual[] = "<>=?\"'/ab \xC3\xA4\xE4\xB8\xAD\xF0\x9F\x98\x80\xBC\xBE";
  for (int round = 0; round < 1000; ++round) {
    std::string bytes(random() % (round % 10 == 0 ? 20'000 : 300), 'x');
    const std::size_t share = 1 + random() % 100;
    for (char& byte : bytes) {
      if (random() % share == 0) byte = usual[random() % (sizeof(usual) - 1)];
      if (random() % (100 * share) == 0) byte = static_cast<char>(random());
    }
    const WideString text = base::FromUtf8(bytes);
    for (const TextBlocks* const blocks : UsableTextBlocks()) {
      const Utf8Text unread(bytes);
      BracketReader brackets(unread, *blocks);
      BracketReader::Places places = brackets.First();
      for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != u'<' && text[at] != u'>') continue;
        ASSERT_EQ(at, *places.next) << blocks->name << " " << round;
        ASSERT_EQ(text[at], brackets.Units()[at]);
        if (++places.next >= places.refill) places = brackets.Refilled(places.next);
      }
      for (std::size_t i = 0; i < BracketReader::kAhead; ++i) ASSERT_EQ(text.size(), places.next[i]) << blocks->name;
      ASSERT_EQ(text, brackets.Text()) << blocks->name;
      ASSERT_EQ(u'\0', brackets.Units()[text.size()]);
    }
  }
}

TEST(TextBlocks, WidenBlocksOfAsciiUpToOneWithAnotherByte) {
  for (const TextBlocks* const blocks : UsableTextBlocks()) {
    for (const char other : {'\x80', '\xC3', '\xFF'}) {
      std::string bytes(3 * kTextBlock, 'a');
      std::fill_n(bytes.begin() + 2 * kTextBlock, kTextBlock, other);
      std::vector<char16_t> units(bytes.size());
      std::vector<std::uint32_t> places(bytes.size() + TextBlocks::kPlacesOver);
      EXPECT_EQ(2u, blocks->widen(bytes.data(), 3, units.data(), 0, places.data()).count) << blocks->name;
      EXPECT_EQ(WideString(2 * kTextBlock, u'a'), WideString(units.data(), 2 * kTextBlock)) << blocks->name;
    }
  }
}

TEST(TextBlocks, ThePlainOnesAreAmongThoseThatAreUsable) {
  ASSERT_FALSE(UsableTextBlocks().empty());
  EXPECT_STREQ("plain", UsableTextBlocks().back()->name);
}

}  // namespace
}  // namespace config
