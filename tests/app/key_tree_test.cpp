#include "app/key_tree.h"

#include "base/utf8.h"
#include "tests/printing.h"
#include "tests/support/test_terminal.h"

namespace {

class KeyTreeTest : public testing::Test {
 protected:
  void SetUp() override {
    auto document = std::make_shared<config::XmlDocument>();
    ASSERT_TRUE(
        document->SetDocument(WideStringView(u"<GROUP name='R'><GROUP name='a'><GROUP name='b'/></GROUP></GROUP>")));
    document_ = document;
    tree_.SetSource({u"R", document});
    document.reset();
  }

  tests::TestTerminal terminal_;
  std::weak_ptr<const config::XmlDocument> document_;
  app::KeyTree tree_;
};

TEST_F(KeyTreeTest, TheFirstTreeEndsBelowTheFirstMenu) {
  ASSERT_TRUE(tree_.BuildFirst());
  EXPECT_EQ(2u, tree_.Current()->Count());
}

TEST_F(KeyTreeTest, ARebuildPutsTheWholeTreeInPlaceAndDropsTheDocument) {
  ASSERT_TRUE(tree_.BuildFirst());
  tree_.AnnounceRebuild();
  EXPECT_TRUE(tree_.Rebuild());
  EXPECT_EQ(3u, tree_.Current()->Count());
  EXPECT_TRUE(document_.expired());
}

TEST_F(KeyTreeTest, AReaderKeepsTheTreeThatItHolds) {
  ASSERT_TRUE(tree_.BuildFirst());
  const auto held = tree_.Current();
  tree_.Rebuild();
  EXPECT_NE(held, tree_.Current());
  EXPECT_NE(nullptr, held->Find(u"R\\a"));
}

TEST_F(KeyTreeTest, AReaderWaitsForTheRebuildUnderWay) {
  ASSERT_TRUE(tree_.BuildFirst());
  tree_.AnnounceRebuild();
  const platform::Thread worker([this] { tree_.Rebuild(); });
  const app::KeyTree::Reader reader(tree_);
  EXPECT_EQ(3u, tree_.Current()->Count());
}

TEST_F(KeyTreeTest, ARebuildWaitsForTheEventOfTheReaders) {
  ASSERT_TRUE(tree_.BuildFirst());
  std::vector<WideString> waits;
  platform::host::CurrentEnvironment().failsWait = [&](WideStringView name) {
    waits.emplace_back(name);
    EXPECT_EQ(2u, tree_.Current()->Count());  // not yet replaced
    return false;
  };
  EXPECT_TRUE(tree_.Rebuild());
  EXPECT_EQ(std::vector<WideString>{u"PDataStoreInUseEvent"}, waits);
  EXPECT_EQ(3u, tree_.Current()->Count());
}

TEST_F(KeyTreeTest, AReaderHoldsUpRebuildsForAsLongAsItLives) {
  ASSERT_TRUE(tree_.BuildFirst());
  platform::Event inUse(u"PDataStoreInUseEvent", true);
  {
    const app::KeyTree::Reader reader(tree_);
    EXPECT_FALSE(inUse.Wait(0));
  }
  EXPECT_TRUE(inUse.Wait(0));
}

TEST_F(KeyTreeTest, ReadersWaitFromTheStartOfARebuildToItsEndEvenIfItWasNotAnnounced) {
  ASSERT_TRUE(tree_.BuildFirst());
  platform::Event created(u"PDataStoreCreatedEvent", true);
  platform::host::CurrentEnvironment().failsWait = [&created](WideStringView name) {
    if (name == u"PDataStoreInUseEvent") {
      EXPECT_FALSE(created.Wait(0));
    }
    return false;
  };
  EXPECT_TRUE(tree_.Rebuild());
  EXPECT_TRUE(created.Wait(0));
}

TEST_F(KeyTreeTest, ARebuildWaitsForTheReaderThatUsesTheTree) {
  ASSERT_TRUE(tree_.BuildFirst());
  const auto first = tree_.Current();
  auto reader = std::make_unique<app::KeyTree::Reader>(tree_);
  const platform::Thread worker([this] { tree_.Rebuild(); });
  EXPECT_EQ(first, tree_.Current());
  reader.reset();
  const app::KeyTree::Reader next(tree_);
}

}  // namespace
