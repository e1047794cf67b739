#include "snmp/engine.h"

#include "tests/platform/temporary_root.h"

#include <optional>
#include <vector>

namespace {

using snmp::Engine;

class EngineFile : public testing::Test {
 protected:
  std::optional<Engine> Start() { return snmp::StartEngine(root_.Path() / "kept" / "engine", sync_, problem_); }

  tests::TemporaryRoot root_;
  simulator::SyncFile sync_;
  std::string problem_;
};

TEST_F(EngineFile, KeepsTheIdAndCountsTheStarts) {
  const auto first = Start();
  ASSERT_TRUE(first);
  EXPECT_EQ(1, first->boots);
  EXPECT_EQ(17u, first->id.size());
  EXPECT_EQ("8000109205", snmp::HexOf(first->id.substr(0, 5)));
  EXPECT_EQ((Engine{first->id, 2}), Start());
  EXPECT_EQ((Engine{first->id, 3}), Start());
  EXPECT_EQ(snmp::HexOf(first->id) + " 3\n", root_.Read("kept/engine"));
}

TEST_F(EngineFile, IsOnDiskBeforeTheStartGoesOn) {
  std::vector<std::string> synced;
  sync_ = [&](const std::filesystem::path& file) {
    synced.push_back(file.filename().string());
    return true;
  };
  Start();
  EXPECT_FALSE(synced.empty());
  sync_ = [](const std::filesystem::path&) { return false; };
  const std::string before = root_.Read("kept/engine");
  EXPECT_FALSE(Start());
  EXPECT_TRUE(problem_.ends_with("kept/engine: cannot be written")) << problem_;
  EXPECT_EQ(before, root_.Read("kept/engine"));
}

TEST_F(EngineFile, OfAnotherIsAnother) {
  const auto first = Start();
  std::filesystem::remove(root_.Path() / "kept" / "engine");
  EXPECT_NE(first->id, Start()->id);
}

TEST_F(EngineFile, ThatIsNoneIsNamed) {
  for (const char* wrong : {"", "80001092 1", "80001092\n", "80001092 1\n", "8000109205 0\n", "8000109205 x\n",
                            "80001092050 1\n", "8000109zz5 1\n", " 1\n"}) {
    root_.Write("kept/engine", wrong);
    problem_.clear();
    EXPECT_FALSE(Start()) << wrong;
    EXPECT_TRUE(problem_.ends_with("kept/engine: is no agent's engine id and count of starts; remove it for a new one"))
        << problem_;
  }
}

TEST_F(EngineFile, ThatCanCountNoFurtherGivesWayToANewOne) {
  root_.Write("kept/engine", "8000109205 2147483645\n");
  EXPECT_EQ(2147483646, Start()->boots);
  const auto next = Start();
  EXPECT_EQ(1, next->boots);
  EXPECT_EQ(17u, next->id.size());
}

TEST(EngineFiles, OfAFolderAreOneHoweverItIsWritten) {
  const tests::TemporaryRoot root;
  const auto file = snmp::EngineFileOf(root.Path(), "state");
  EXPECT_EQ("state/engines", file.parent_path());
  EXPECT_EQ(16u, file.filename().string().size());
  EXPECT_EQ(file, snmp::EngineFileOf(root.Path() / "none" / "..", "state"));
  EXPECT_NE(file, snmp::EngineFileOf(root.Path() / "other", "state"));
  EXPECT_EQ("", snmp::EngineFileOf(root.Path(), ""));
}

}  // namespace
