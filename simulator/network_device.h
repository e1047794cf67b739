// The device on the network that a program works on, as its options name it.
#pragma once

#include "simulator/options.h"
#include "snmp/inquiry.h"
#include "snmp/net_session.h"
#include "snmp/snmp_device.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace simulator {

class NetworkDevice {
 public:
  // Null, and one line in `problem`, when it cannot be talked to. May ask the person at the terminal for passwords.
  static std::unique_ptr<NetworkDevice> Connect(const Options& options, std::string& problem);

  // It must live longer.
  std::unique_ptr<platform::ISnmpConfig> Device();

  // It lives as long as this.
  snmp::Inquiry& Inquiry() { return inquiry_; }

  const std::string& Name() const { return name_; }        // as it is shown
  const std::string& Place() const { return place_; }      // host and port
  const std::string& Address() const { return address_; }  // its own, on the network

  // Is told what the person should know of something that the device may have done or not.
  void TellDoubts(std::function<void(const std::string& told)> tell) { tellDoubt_ = std::move(tell); }

  // What a warm boot comes to: sets the OID that restarts the device, if one was named. What the person is to be told.
  std::string Restart();

 private:
  NetworkDevice(const Options& options, const snmp::Target& target, snmp::OpenedSession opened);
  // Empty, or what was tried in vain.
  std::string Probe(bool isUser);

  const std::string name_;
  const std::string place_;
  const std::string address_;
  const WideString restartOid_;
  const bool truthValues_;
  std::function<void(const std::string& told)> tellDoubt_;
  const std::unique_ptr<snmp::Session> session_;
  snmp::Inquiry inquiry_;
};

}  // namespace simulator
