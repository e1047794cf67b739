#include "authoring/memory_device.h"

#include "tests/authoring/storage_folder.h"

namespace {

using authoring::MemoryDevice;

TEST(MemoryDevice, AnswersAsTheStoragesOwnAndKeepsWhatWasSet) {
  tests::StorageFolder folder;
  folder.WriteMenu("").Write("device.txt",
                             "1.1\tInteger\t5\n1.2\tInteger\t6\treadonly\n1.3\tInteger\t7\tnull\n"
                             "1.4\tInteger\t8\tget=0x80004005\n1.5\tInteger\t9\tset=0x80004005\n");
  const auto configuration = folder.Load();
  MemoryDevice device(configuration->Terminal());
  const auto connection = device.Connector()();
  std::optional<WideString> value;
  EXPECT_EQ(platform::kOk, connection->Get(u"1.1", u"Integer", value));
  EXPECT_EQ(u"5", value);
  EXPECT_EQ(platform::kOk, connection->Set(u"1.1", u"Integer", u"50"));
  connection->Get(u"1.1", u"Integer", value);
  EXPECT_EQ(u"50", value);
  EXPECT_EQ(platform::kAccessDenied, connection->Set(u"1.2", u"Integer", u"60"));
  EXPECT_EQ(platform::kOk, connection->Get(u"1.3", u"Integer", value));
  EXPECT_EQ(std::nullopt, value);
  EXPECT_EQ(platform::kFailed, connection->Get(u"1.4", u"Integer", value));
  EXPECT_EQ(platform::kFailed, connection->SetSpecial(u"1.5", u"Integer", u"90"));
  EXPECT_EQ(platform::kFailed, connection->GetSpecial(u"1.6", u"Integer", value));
  ASSERT_EQ(3u, device.Writes().size());
  EXPECT_EQ((MemoryDevice::Write{u"1.1", u"Integer", u"50", platform::kOk}), device.Writes()[0]);
  EXPECT_EQ(u"6", device.Find(u"1.2")->value);
}

}  // namespace
