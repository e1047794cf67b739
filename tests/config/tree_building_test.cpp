// The tree that is built in one walk of the index, against the plain way: for every key, matching its path from the top
// of the document.

#include "config/data_store.h"
#include "tests/printing.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

namespace config {
namespace {

struct PlainKey {
  std::map<WideString, WideString> values;
  std::vector<WideString> subkeys;
  bool operator==(const PlainKey&) const = default;
};

using PlainTree = std::map<WideString, PlainKey>;

bool Match(XmlDocument& document, WideStringView path) {
  if (path.empty()) return true;
  const std::size_t end = path.find(u'\\');
  const WideStringView rest = end == WideStringView::npos ? WideStringView() : path.substr(end + 1);
  while (document.FindElement(u"GROUP")) {
    if (document.Attribute(u"name") != path.substr(0, end)) continue;
    document.GoInto();
    if (Match(document, rest)) return true;
  }
  document.GoOutOf();
  return false;
}

PlainKey ReadPlainKey(XmlDocument& document, const WideString& path) {
  PlainKey key;
  document.ResetPosition();
  if (Match(document, path)) {
    while (document.FindElement()) {
      if (document.TagName() == u"GROUP") {
        key.subkeys.push_back(document.Attribute(u"name"));
      } else {
        key.values[WideString(document.TagName())] = document.Data();
      }
    }
  }
  const WideString descendent = key.values.contains(u"Descendent") ? key.values[u"Descendent"] : WideString();
  if (!descendent.empty()) key.subkeys.push_back(descendent);
  return key;
}

void BuildPlainTree(XmlDocument& document, const WideString& path, std::uint32_t depth, std::uint32_t maxDepth,
                    PlainTree& tree) {
  if (depth > maxDepth) return;
  const PlainKey key = ReadPlainKey(document, path);
  tree[path] = key;
  for (const WideString& name : key.subkeys) {
    BuildPlainTree(document, path + u"\\" + name, depth + 1, maxDepth, tree);
  }
}

PlainKey Plain(const ConfigKey& key) {
  PlainKey plain;
  for (const NamedText& value : key.Values()) plain.values[WideString(value.name)] = WideString(value.text);
  for (const WideStringView name : key.Subkeys()) plain.subkeys.emplace_back(name);
  return plain;
}

// Few names, so that siblings share them and paths lead through several groups; some of them empty or with backslashes.
class RandomDocument {
 public:
  explicit RandomDocument(std::uint32_t seed) : random_(seed) {}

  WideString Make() {
    budget_ = Below(60);
    WideString text;
    AddGroup(text, 0);
    return text;
  }

  WideString RootName() const { return rootName_; }
  std::uint32_t Below(std::uint32_t limit) { return static_cast<std::uint32_t>(random_() % limit); }

  WideString Name() {
    static constexpr WideStringView kNames[] = {u"a",    u"a",     u"b",    u"b",    u"c",       u"A",
                                                u"",     u"a\\b",  u"b\\c", u"\\",   u"a\\",     u"\\b",
                                                u"a\\a", u"&lt;c", u"x y",  u"\\\\", u"c\\a\\b", u"d"};
    // Mostly the plain ones, else hardly a path leads deep.
    return WideString(Below(4) != 0 ? kNames[Below(5)] : kNames[Below(std::size(kNames))]);
  }

 private:
  void AddGroup(WideString& text, int depth) {
    const WideString name = Name();
    if (depth == 0) rootName_ = XmlText{name, true}.Decoded();
    text += Below(12) == 0 ? WideString(u"<GROUP>") : u"<GROUP name=\"" + name + u"\">";
    if (depth == 0 && text == u"<GROUP>") rootName_.clear();
    const std::uint32_t children = depth == 0 ? 8 : Below(6);
    for (std::uint32_t i = 0; i < children && budget_ > 0; ++i) {
      --budget_;
      AddChild(text, depth);
    }
    text += u"</GROUP>";
  }

  void AddChild(WideString& text, int depth) {
    switch (Below(8)) {
      case 0: text += u"<V>" + Name() + u"</V>"; break;
      case 1: text += u"<W><![CDATA[&lt;]]></W><!-- <GROUP name=\"a\"/> -->"; break;
      case 2: text += u"<Descendent>" + Name() + u"</Descendent>"; break;
      case 3: text += u"<GROUP name='" + Name() + u"'/>"; break;
      case 4: text += u"<V><GROUP name='a'/></V>"; break;
      default:
        if (depth < 6) AddGroup(text, depth + 1);
    }
  }

  std::mt19937 random_;
  std::uint32_t budget_ = 0;
  WideString rootName_;
};

TEST(TreeBuilding, OneWalkGivesWhatMatchingEveryPathFromTheTopGives) {
  constexpr std::uint32_t kDepths[] = {0, 1, 2, 3, PDataStore::kWholeTree};
  std::size_t keys = 0;
  for (std::uint32_t seed = 1; seed <= 6000; ++seed) {
    RandomDocument random(seed);
    const WideString text = random.Make();
    // Now and then from somewhere else than the root.
    const WideString root = random.Below(10) != 0 ? random.RootName() : random.RootName() + u"\\" + random.Name();
    const std::uint32_t maxDepth = kDepths[random.Below(std::size(kDepths))];

    auto document = std::make_shared<XmlDocument>();
    ASSERT_TRUE(document->SetDocument(text)) << base::ToUtf8(text);
    PlainTree plain;
    BuildPlainTree(*document, root, 0, maxDepth, plain);
    const PDataStore tree(root, document, {}, maxDepth);
    document.reset();

    ASSERT_EQ(plain.size(), tree.Count()) << "seed " << seed << " " << base::ToUtf8(text);
    for (const auto& [path, key] : plain) {
      const ConfigKey* const found = tree.Find(path);
      ASSERT_NE(nullptr, found) << "seed " << seed << " " << base::ToUtf8(path) << " in " << base::ToUtf8(text);
      ASSERT_EQ(key, Plain(*found)) << "seed " << seed << " " << base::ToUtf8(path) << " in " << base::ToUtf8(text);
      ASSERT_EQ(path, found->FullPath());
      for (const WideString& name : key.subkeys) {
        ASSERT_EQ(tree.Find(path + u"\\" + name), tree.FindBelow(*found, name)) << base::ToUtf8(path + u"\\" + name);
      }
      ASSERT_EQ(plain.contains(path + u"\\a"), tree.Find(path + u"\\a") != nullptr) << "seed " << seed;
    }
    keys += plain.size();
  }
  EXPECT_GT(keys, 20000u);  // the documents are worth the name
}

}  // namespace
}  // namespace config
