// A device store on the network: everything between the values and the socket.
#pragma once

#include "snmp/agent_plan.h"
#include "snmp/responder.h"

#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace snmp {

class Agent {
 public:
  // Null, and one line in `problem`, when the plan cannot be carried out. The store must live longer.
  static std::unique_ptr<Agent> Open(simulator::DeviceStore& store, const AgentPlan& plan, std::string& problem);

  Endpoint Where() const { return responder_->Where(); }
  // What whoever starts it should know: a line for each OID of the store that no message can name.
  std::vector<std::string> Remarks() const;

  // As a responder's. Whoever else has the store may use it meanwhile.
  void Serve(int stop = -1) { responder_->Serve(stop); }
  void Stop() { responder_->Stop(); }

 private:
  explicit Agent(simulator::DeviceStore& store) : mib_(store), handler_(store, mib_) {}

  const DeviceMib mib_;
  RequestHandler handler_;
  std::unique_ptr<Responder> responder_;
};

// Serves beside whatever else the program does, while it lives.
class AgentThread {
 public:
  explicit AgentThread(std::unique_ptr<Agent> agent) : agent_(std::move(agent)), thread_([this] { agent_->Serve(); }) {}
  ~AgentThread() {
    agent_->Stop();
    thread_.join();
  }
  AgentThread(const AgentThread&) = delete;
  AgentThread& operator=(const AgentThread&) = delete;

 private:
  const std::unique_ptr<Agent> agent_;
  std::thread thread_;
};

}  // namespace snmp
