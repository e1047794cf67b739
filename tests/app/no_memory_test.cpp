// A start of the program's data, once for each of its allocations, which is refused then; and the program whose worker
// gets no memory at all.
#include "app/key_tree.h"
#include "base/utf8.h"
#include "config/config_source.h"
#include "model/menu_model.h"
#include "tests/app/utility_run.h"
#include "tests/platform/temporary_root.h"
#include "tests/printing.h"
#include "tests/support/fake_boxes.h"
#include "tests/support/fake_device.h"

#include <atomic>
#include <cstdlib>
#include <memory>
#include <new>
#include <optional>
#include <set>
#include <thread>

namespace {

std::atomic<bool> counting = false;
std::atomic<int> allocations = 0;
std::atomic<int> refused = 0;  // the number of the allocation that fails; 0: none

std::atomic<bool> workersGetNone = false;
const std::thread::id mainThread = std::this_thread::get_id();

void* Allocate(std::size_t size) {
  if (workersGetNone && std::this_thread::get_id() != mainThread) throw std::bad_alloc();
  if (counting && ++allocations == refused) throw std::bad_alloc();
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

class CountingAllocations {
 public:
  explicit CountingAllocations(int refusedOne) {
    allocations = 0;
    refused = refusedOne;
    counting = true;
  }
  ~CountingAllocations() { counting = false; }
  CountingAllocations(const CountingAllocations&) = delete;
  CountingAllocations& operator=(const CountingAllocations&) = delete;
};

constexpr const char* kConfiguration =
    "<GROUP name='R'><DisplayName>Main &amp; only</DisplayName>"
    "<GROUP name='menu'><DisplayName>A menu of a longer name</DisplayName>"
    "<GROUP name='command'><DisplayName>Command</DisplayName><OID>1.2</OID><Type>ReaderCmd</Type>"
    "<CmdString>2,4,2</CmdString><Ordinal>1</Ordinal></GROUP>"
    "<GROUP name='field'><DisplayName>Field</DisplayName><CmdOID>1.2:2</CmdOID><Ordinal>2</Ordinal>"
    "<Type>Integer</Type></GROUP>"
    "<GROUP name='choice'><DisplayName>Choice</DisplayName><OID>1.3</OID><Type>Integer</Type>"
    "<ChoiceFmt>1#the first of two|2#the second of two</ChoiceFmt><CustPage>Page</CustPage></GROUP></GROUP>"
    "<GROUP name='more'><Descendent>x\\y</Descendent><GROUP name='x'><GROUP name='y'/></GROUP></GROUP></GROUP>";

class NoMemory : public testing::Test {
 protected:
  NoMemory() {
    root_.Write("Windows/ovu.xml", kConfiguration);
    device_[u"1.2"].text = u"110042";
    device_[u"1.3"].text = u"2";
  }

  // What a line of the menu is, with those below it in parentheses.
  static WideString Dump(const model::MenuItem& item) {
    WideString text = item.LineText();
    if (item.IsLeaf()) return text;
    text += u"(";
    for (const auto& child : item.Children()) text += Dump(*child) + u"|";
    return text + u")";
  }

  const tests::TemporaryRoot root_;
  const platform::host::InstalledEnvironment environment_{root_.Environment()};
  tests::FakeDevice device_;
  tests::FakeBoxes boxes_;
  const values::SymbolTable symbols_;
};

TEST_F(NoMemory, NoRefusedAllocationOfAStartEndsItOrSpoilsTheMenu) {
  constexpr WideStringView kMenu =
      u"Main & only(A menu of a longer name(Command|Field  <42>|Choice  <the second of two>|)|((|)||)|)";
  int count = 0;
  int failedLoads = 0;
  int failedRebuilds = 0;
  int partialModels = 0;
  int unreadValues = 0;
  for (int refusedOne = 0; refusedOne <= count; ++refusedOne) {
    SCOPED_TRACE(refusedOne);
    values::DeviceAccess access(device_.Connector());
    access.Interface();
    platform::Event gate(u"", true);
    app::KeyTree tree;
    model::MenuModel model({access, symbols_, gate, boxes_});
    {
      const CountingAllocations counted(refusedOne);
      bool loaded = false;
      try {
        config::SelectedSource selected = config::SelectSource({});
        if (selected.source) tree.SetSource(std::move(*selected.source));
        loaded = selected.source && tree.BuildFirst();
      } catch (const std::bad_alloc&) {
        loaded = false;
      }
      if (!loaded) {
        ++failedLoads;
        continue;
      }
      model.BuildTopLevel(tree.Current(), tree.RootPath());
      const auto first = tree.Current();
      tree.AnnounceRebuild();
      bool rebuilt = false;
      try {
        const platform::Thread worker([&] { rebuilt = tree.Rebuild(); });
      } catch (const std::bad_alloc&) {
        tree.CallOffRebuild();
      }
      EXPECT_EQ(!rebuilt, tree.Current() == first);
      if (!rebuilt) {
        ++failedRebuilds;
        EXPECT_EQ(3u, tree.Current()->Count());
        continue;
      }
      model.Build(tree.Current(), tree.RootPath());
      if (refusedOne == 0) count = allocations;
    }
    if (model.IsWhole()) {
      // A value that could not be read is passed over like one that the device does not give.
      const WideString menu = Dump(model.Root());
      const bool unread = menu.find(u"<Unavailable>") != WideString::npos;
      unreadValues += unread ? 1 : 0;
      EXPECT_TRUE(unread || menu == kMenu) << base::ToUtf8(menu);
      continue;
    }
    ++partialModels;
    for (const auto& [oid, descriptor] : model.Descriptors()) EXPECT_NE(nullptr, model.ItemOf(*descriptor));
    EXPECT_TRUE(model.Build(tree.Current(), tree.RootPath()));
    EXPECT_TRUE(model.IsWhole());
    EXPECT_EQ(kMenu, Dump(model.Root()));
  }
  EXPECT_GT(failedLoads, 10);
  EXPECT_GT(failedRebuilds, 10);
  EXPECT_GT(partialModels, 50);
  EXPECT_GT(unreadValues, 0);
  EXPECT_LT(unreadValues, 10);
}

// The allocations behind the reading of the file are refused one by one, until one of each step has been.
TEST(NoMemoryForTheLoad, IsToldLikeAConfigurationThatCannotBeRead) {
  const tests::TemporaryRoot root;
  root.Write("Windows/ovu.xml", kConfiguration);
  const std::set<WideString> steps = {u"EXCEPTION: ReadDocument()\r\n",
                                      u"EXCEPTION: CKelConfigApp::LoadConfiguration()\r\n",
                                      u"EXCEPTION: KeyTree::Build()\r\n", u"EXCEPTION: PDataStore::PDataStore()\r\n"};
  std::set<WideString> refusedSteps;
  for (int refusedOne = 1; refusedOne < 100 && refusedSteps.size() < steps.size(); ++refusedOne) {
    SCOPED_TRACE(refusedOne);
    tests::Keypad keypad;
    simulator::DebugLog debug(true);
    std::optional<CountingAllocations> counted;
    tests::FailingCalls calls([&](std::size_t) {
      if (calls.Calls().back() == "read 1") counted.emplace(refusedOne);
      return false;
    });
    ASSERT_EQ("", tests::RunUtilityOn({.root = root.Path(), .debug = &debug}, keypad, calls));
    counted.reset();
    ASSERT_FALSE(keypad.IsStuck());
    if (keypad.Boxes().empty()) continue;  // what was refused is not needed
    EXPECT_EQ(std::vector<std::string>{"Error: Error getting configuration data. Warm boot and try again."},
              keypad.Boxes());
    refusedSteps.insert(debug.TakeLines().at(0));
  }
  EXPECT_EQ(steps, refusedSteps);
}

TEST(NoMemoryForTheWorker, IsToldAndLeavesTheFirstMenu) {
  const tests::TemporaryRoot root;
  root.Write("Windows/ovu.xml", kConfiguration);
  tests::Keypad keypad;
  keypad.Press("{Enter}");
  workersGetNone = true;
  const std::string problem = tests::RunUtilityOn({root.Path()}, keypad);
  workersGetNone = false;
  EXPECT_EQ("", problem);
  EXPECT_FALSE(keypad.IsStuck());
  EXPECT_EQ(std::vector<std::string>{"Error: Error getting configuration data. Warm boot and try again."},
            keypad.Boxes());
}

}  // namespace
