#include "snmp/request_handler.h"

#include "snmp/result_codes.h"
#include "snmp/value_codec.h"

#include <algorithm>
#include <utility>

namespace snmp {
namespace {

// What the variables of a datagram may take that a network carries in one piece.
constexpr std::size_t kMaxBytesInOnePiece = 1'330;

constexpr std::chrono::milliseconds kLongestDelay{60'000};

Response Failed(ErrorStatus status, std::size_t index) { return {status, index, {}}; }

// The number of a GetBulk's field, where more than `most` is as much.
std::size_t Limited(std::int64_t number, std::size_t most) {
  return number <= 0 ? 0 : std::min(static_cast<std::size_t>(number), most);
}

// Takes variables while there is room for them. The first always finds some.
class Batch {
 public:
  explicit Batch(std::size_t room) : room_(room) {}

  bool Add(Variable variable) {
    bytes_ += SizeInMessage(variable);
    if (!variables_.empty() && bytes_ > std::min(room_, kMaxBytesInOnePiece)) return false;
    variables_.push_back(std::move(variable));
    return true;
  }
  Response Take() {
    const bool fits = variables_.size() != 1 || SizeInMessage(variables_.front()) <= room_;
    return fits ? Response{ErrorStatus::kNoError, 0, std::move(variables_)} : Failed(ErrorStatus::kTooBig, 0);
  }

 private:
  const std::size_t room_;
  std::vector<Variable> variables_;
  std::size_t bytes_ = 0;
};

}  // namespace

struct RequestHandler::Reading {
  Rights rights;
  std::chrono::milliseconds delay{0};
};

Response RequestHandler::Answer(const Request& request, Rights rights) {
  if (request.command == Command::kSet) return Set(request, rights);
  Reading reading{rights};
  return Read(request, reading);
}

std::chrono::milliseconds RequestHandler::DelayOf(const Request& request, Rights rights) {
  if (!mib_.HasDelays()) return std::chrono::milliseconds(0);
  Reading reading{rights};
  if (request.command != Command::kSet) {
    Read(request, reading);
  } else {
    for (const Variable& variable : request.variables) {
      const Setting* setting = mib_.Find(variable.oid);
      if (setting != nullptr) reading.delay += std::chrono::milliseconds(setting->options.delayMs);
    }
  }
  return std::min(reading.delay, kLongestDelay);
}

Response RequestHandler::Read(const Request& request, Reading& reading) {
  return request.command == Command::kGetBulk ? ReadBulk(request, reading) : ReadOne(request, reading);
}

Response RequestHandler::ReadOne(const Request& request, Reading& reading) {
  Response response;
  std::size_t bytes = 0;
  for (const Variable& asked : request.variables) {
    Variable variable{asked.oid, {}};
    if (request.command == Command::kGetNext) {
      variable = Next(asked.oid, reading);
    } else if (const ErrorStatus status = Get(asked.oid, reading, variable.value); status != ErrorStatus::kNoError) {
      return Failed(status, response.variables.size() + 1);
    }
    bytes += SizeInMessage(variable);
    if (bytes > request.room) return Failed(ErrorStatus::kTooBig, 0);
    response.variables.push_back(std::move(variable));
  }
  return response;
}

Response RequestHandler::ReadBulk(const Request& request, Reading& reading) {
  Batch batch(request.room);
  const std::size_t once = Limited(request.nonRepeaters, request.variables.size());
  for (std::size_t i = 0; i < once; ++i) {
    if (!batch.Add(Next(request.variables[i].oid, reading))) return batch.Take();
  }
  std::vector<Oid> columns;
  for (std::size_t i = once; i < request.variables.size(); ++i) columns.push_back(request.variables[i].oid);
  // A row takes room, so that the batch ends this however many were asked for; one in which all have come to the end is
  // the last.
  bool goesOn = !columns.empty();
  for (std::int64_t row = 0; goesOn && row < request.maxRepetitions; ++row) {
    goesOn = false;
    for (Oid& column : columns) {
      Variable next = Next(column, reading);
      goesOn = goesOn || next.value.type != ValueType::kEndOfMibView;
      column = next.oid;
      if (!batch.Add(std::move(next))) return batch.Take();
    }
  }
  return batch.Take();
}

ErrorStatus RequestHandler::Get(const Oid& oid, Reading& reading, Value& value) {
  const Setting* setting = mib_.Find(oid);
  if (setting == nullptr) {
    value.type = ValueType::kNoSuchObject;
    return ErrorStatus::kNoError;
  }
  value.type = ValueType::kNoSuchInstance;
  if (!setting->IsVisible(reading.rights)) return ErrorStatus::kNoError;
  value = ValueNow(*setting, reading);
  return setting->Fails() ? ErrorStatus::kGenErr : ErrorStatus::kNoError;
}

Variable RequestHandler::Next(const Oid& oid, Reading& reading) {
  const Setting* next = mib_.Next(oid, reading.rights);
  if (next == nullptr) return {oid, {ValueType::kEndOfMibView, 0, {}}};
  return {next->oid, ValueNow(*next, reading)};
}

Value RequestHandler::ValueNow(const Setting& setting, Reading& reading) {
  reading.delay += std::chrono::milliseconds(setting.options.delayMs);
  std::optional<WideString> text;
  store_.Get(*setting.line, text);
  return text ? ValueOf(setting.type, *text) : Value{ValueType::kNoSuchInstance, 0, {}};
}

Response RequestHandler::Set(const Request& request, Rights rights) {
  std::vector<simulator::DeviceStore::Change> changes;
  for (const Variable& variable : request.variables) {
    const ErrorStatus status = Check(variable, rights, changes.emplace_back());
    if (status != ErrorStatus::kNoError) return Failed(status, changes.size());
  }
  // All could be taken; now the device has its say.
  for (std::size_t i = 0; i < request.variables.size(); ++i) {
    const auto& refusal = mib_.Find(request.variables[i].oid)->options.set;
    if (refusal && *refusal < 0) return Failed(ErrorOfFailedSet(*refusal), i + 1);
  }
  const platform::ResultCode code = store_.Set(changes);
  return code < 0 ? Failed(ErrorStatus::kCommitFailed, 1) : Response{};
}

ErrorStatus RequestHandler::Check(const Variable& variable, Rights rights, simulator::DeviceStore::Change& change) {
  if (!rights.write) return ErrorStatus::kNoAccess;
  const Setting* setting = mib_.Find(variable.oid);
  if (setting == nullptr) return ErrorStatus::kNoCreation;
  if (!setting->IsVisible(rights)) return ErrorStatus::kNoAccess;
  if (setting->options.readOnly) return ErrorStatus::kNotWritable;
  change.oid = setting->oidText;
  std::optional<WideString> current;
  store_.Get(setting->oidText, current);
  return TextOf(variable.value, setting->type, current.value_or(u""), change.value);
}

}  // namespace snmp
