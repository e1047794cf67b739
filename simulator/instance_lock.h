// One running terminal a storage. The running one keeps a locked file in the root folder, which holds the titles of its
// windows, so that the next one sees them as those of another program.
#pragma once

#include "simulator/other_terminals.h"

#include <filesystem>
#include <string>
#include <vector>

namespace simulator {

class InstanceLock final : public OtherTerminals {
 public:
  // Tries to take the lock of the storage, or of a terminal elsewhere that is worked on with what the storage holds.
  // Whoever has it is then Other(), 0 when it is this process.
  explicit InstanceLock(const std::filesystem::path& root, const std::string& elsewhere = {});
  ~InstanceLock() override;
  InstanceLock(const InstanceLock&) = delete;
  InstanceLock& operator=(const InstanceLock&) = delete;

  // Empty, or why the storage cannot be written.
  const std::string& Problem() const { return problem_; }

  int Other() const { return other_; }
  std::vector<WideString> OtherTitles() const override;
  // Sends the other terminal kBringForwardSignal.
  void BringOtherForward() const override;

  void Publish(const std::vector<WideString>& titles) override;

 private:
  bool IsStillTheFile() const;

  const std::filesystem::path file_;
  int descriptor_ = -1;
  int other_ = 0;
  std::string problem_;
  std::vector<WideString> published_;
};

// Ignored until a display asks for it.
extern const int kBringForwardSignal;

}  // namespace simulator
