#include "authoring/play_session.h"

#include "app/kel_config_app.h"
#include "base/utf8.h"
#include "platform/host/desktop.h"
#include "simulator/host_snapshot.h"
#include "simulator/storage.h"
#include "simulator/terminal.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace authoring {
namespace {

namespace host = platform::host;
using host::KeyStroke;

}  // namespace

void FixSurroundings(host::Environment& environment) {
  environment.localTime = platform::SystemTime{2024, 3, 5, 15, 9, 30, 0, 0};
  environment.hostName = "terminal";
  environment.hostAddress = "192.0.2.7";
}

class PlaySession::Impl final : private host::Display {
 public:
  Impl(const PlayTerms& terms, rules::RuleListener* listener) : terms_(terms) {
    problem_ = simulator::OpenStorage(terms.root, storage_);
    if (!problem_.empty()) return;
    listener_ = listener;
    turn_ = Turn::kProgram;
    thread_ = std::thread([this] { Run(); });
    AwaitTurn();
  }

  ~Impl() override {
    if (!thread_.joinable()) return;
    {
      std::unique_lock lock(mutex_);
      quits_ = true;
      turn_ = Turn::kProgram;
    }
    changed_.notify_all();
    thread_.join();
  }

  void Press(const simulator::Key& key) {
    if (!IsRunning()) return;
    {
      std::unique_lock lock(mutex_);
      key_ = KeyStroke{key.virtualKey, key.character, key.shift, false};
      turn_ = Turn::kProgram;
    }
    changed_.notify_all();
    AwaitTurn();
  }

  bool IsRunning() const { return problem_.empty() && !ended_; }

  const PlayTerms terms_;
  std::string problem_;
  simulator::LineLog effects_{true};
  std::vector<std::string> notes_;
  const app::CKelConfigApp* application_ = nullptr;

 private:
  enum class Turn { kPlayer, kProgram };

  void Run() {
    {
      simulator::NoOtherTerminals nobody;
      simulator::DebugLog debug(false);
      simulator::Terminal terminal({storage_, nobody, effects_, debug, *this}, terms_.widthPx, terms_.heightPx,
                                   [this](WideStringView commandLine) {
                                     FixSurroundings(host::CurrentEnvironment());
                                     const auto watcher = [this](const app::CKelConfigApp* running) {
                                       application_ = running;
                                     };
                                     app::RunUtility(commandLine, watcher, listener_);
                                     return 0;
                                   });
      terminal.Run(terms_.commandLine);
    }
    {
      std::unique_lock lock(mutex_);
      ended_ = true;
      turn_ = Turn::kPlayer;
    }
    changed_.notify_all();
  }

  void AwaitTurn() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return turn_ == Turn::kPlayer; });
  }

  // --- on the program's thread ---

  std::optional<KeyStroke> NextKey() override {
    if (host::AreThreadsRunning() || host::AreMessagesWaiting()) {
      std::unique_lock lock(mutex_);
      changed_.wait(lock, [this] { return woken_; });
      woken_ = false;
      return std::nullopt;
    }
    std::unique_lock lock(mutex_);
    if (!quits_) {
      turn_ = Turn::kPlayer;
      changed_.notify_all();
      changed_.wait(lock, [this] { return turn_ == Turn::kProgram; });
    }
    if (!quits_) return key_;
    lock.unlock();
    platform::PostQuit(0);
    return std::nullopt;
  }

  void Wake() override {
    const std::lock_guard lock(mutex_);
    woken_ = true;
    changed_.notify_all();
  }

  // A note stands in the middle of the window in front.
  void Pause(std::chrono::milliseconds) override {
    const auto children = host::ChildrenOf(platform::ActiveWindow());
    if (children.empty() || host::KindOf(children.back()) != host::WindowKind::kStatic) return;
    notes_.push_back(base::ToUtf8(platform::TextOf(children.back())));
  }
  void Beep() override {}
  void ComeForward() override {}

  simulator::Storage storage_;
  rules::RuleListener* listener_ = nullptr;
  std::mutex mutex_;
  std::condition_variable changed_;
  Turn turn_ = Turn::kPlayer;
  bool quits_ = false;
  bool ended_ = false;
  bool woken_ = false;
  KeyStroke key_;
  std::thread thread_;
};

PlaySession::PlaySession(const PlayTerms& terms, rules::RuleListener* listener)
    : impl_(std::make_unique<Impl>(terms, listener)) {}
PlaySession::~PlaySession() = default;

const std::string& PlaySession::Problem() const { return impl_->problem_; }
bool PlaySession::IsRunning() const { return impl_->IsRunning(); }
void PlaySession::Press(const simulator::Key& key) { impl_->Press(key); }
const app::CKelConfigApp* PlaySession::App() const { return IsRunning() ? impl_->application_ : nullptr; }
simulator::ScreenPicture PlaySession::Screen() const {
  return IsRunning() ? simulator::TakeScreenPicture() : simulator::ScreenPicture{};
}
simulator::PaintedScreen PlaySession::Paint(int columns, int rows) const {
  return simulator::PaintScreen(columns, rows, {impl_->terms_.widthPx, impl_->terms_.heightPx, true});
}
std::vector<std::string> PlaySession::TakeEffects() { return impl_->effects_.Take(); }
std::vector<std::string> PlaySession::TakeNotes() { return std::exchange(impl_->notes_, {}); }

}  // namespace authoring
