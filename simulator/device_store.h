// The simulated device's values, kept in device.txt: one a line, OID, type, value and options in columns. Any thread
// may read and set them.
#pragma once

#include "platform/device.h"
#include "simulator/text_file.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace simulator {

// Options of a line, separated by commas.
struct DeviceOptions {
  bool readOnly = false;                    // readonly: Set fails with kAccessDenied
  std::optional<platform::ResultCode> get;  // get=0xHHHHHHHH: the result of Get
  std::optional<platform::ResultCode> set;  // set=0xHHHHHHHH: the result of Set
  bool null = false;                        // null: Get gives no text
  int delayMs = 0;                          // delay=MS: both take that long
  bool operator==(const DeviceOptions&) const = default;
};

struct DeviceLine {
  WideString oid;
  WideString type;
  WideString value;
  WideString optionsText;
  DeviceOptions options;
  bool operator==(const DeviceLine&) const = default;
};

// Nothing, and `problem` says why, when the line is no value.
std::optional<DeviceLine> ParseDeviceLine(std::string_view line, std::string& problem);
std::string FormatDeviceLine(const DeviceLine& line);

class DeviceStore {
 public:
  struct Opened {
    std::unique_ptr<DeviceStore> store;  // null when the file cannot be read or has a broken line
    std::string problem;                 // then: one line that names the file
  };
  struct Change {
    WideString oid;
    WideString value;
  };

  // A missing file is a device without values.
  static Opened Open(const std::filesystem::path& file);

  // A device without values; Open() makes one that has them.
  explicit DeviceStore(std::filesystem::path file);
  // Puts the file in order: one line for each OID.
  ~DeviceStore();
  DeviceStore(const DeviceStore&) = delete;
  DeviceStore& operator=(const DeviceStore&) = delete;

  // Another process has the file as well: from now on it is only added to.
  void ShareFile();

  // From now on Set returns when not even a loss of power undoes it.
  void SyncWith(SyncFile sync);

  // All values, in no order.
  std::vector<DeviceLine> AllLines();

  // Whether the file says what this device has; not so when somebody has edited it.
  bool IsAsInFile();

  // What a delay= asks for, which its users let pass: nobody else waits meanwhile. 0 for an OID that is not there.
  int DelayMs(const WideString& oid);

  platform::ResultCode Get(const WideString& oid, std::optional<WideString>& value);

  // The place of a value, which stays as long as this lives: for whoever reads it again and again. What it holds is
  // read by Get() alone. Null for an OID that is not there.
  const DeviceLine* Find(const WideString& oid);
  platform::ResultCode Get(const DeviceLine& line, std::optional<WideString>& value);

  // Returns when the value is on disk; on any failure nothing has changed. Whenever the process is killed, the file
  // holds the state before this call or after it.
  platform::ResultCode Set(const WideString& oid, const WideString& value);
  // The same for several in one step. Fails as the first that fails, and then none is changed.
  platform::ResultCode Set(const std::vector<Change>& changes);

 private:
  using Lines = std::unordered_map<WideString, DeviceLine>;
  static std::string Parse(std::string_view bytes, Lines& lines, std::size_t& superseded);
  std::string Read();
  bool AreIn(const std::optional<std::string>& bytes) const;
  bool Write(const std::vector<DeviceLine>& changed);
  bool Append(const DeviceLine& line);
  bool Rewrite(const std::vector<DeviceLine>& changed);
  bool IsOnDisk() const { return !sync_ || sync_(file_); }
  void Compact();

  const std::filesystem::path file_;
  SyncFile sync_;
  std::mutex mutex_;
  Lines lines_;
  std::size_t superseded_ = 0;  // lines of the file that a later one replaces
  bool shared_ = false;
};

}  // namespace simulator
