#include "snmp/net_snmp_user.h"

#include <array>
#include <string>

namespace snmp {
namespace {

int NumberOf(AuthProtocol protocol) {
  switch (protocol) {
    case AuthProtocol::kMd5: return NETSNMP_USMAUTH_HMACMD5;
    case AuthProtocol::kSha: return NETSNMP_USMAUTH_HMACSHA1;
    case AuthProtocol::kSha224: return NETSNMP_USMAUTH_HMAC128SHA224;
    case AuthProtocol::kSha256: return NETSNMP_USMAUTH_HMAC192SHA256;
    case AuthProtocol::kSha384: return NETSNMP_USMAUTH_HMAC256SHA384;
    case AuthProtocol::kSha512: return NETSNMP_USMAUTH_HMAC384SHA512;
  }
  return NETSNMP_USMAUTH_NOAUTH;
}

int NumberOf(PrivProtocol protocol) {
  switch (protocol) {
    case PrivProtocol::kDes: return USM_CREATE_USER_PRIV_DES;
    case PrivProtocol::kAes: return USM_CREATE_USER_PRIV_AES;
    case PrivProtocol::kAes192: return USM_CREATE_USER_PRIV_AES192;
    case PrivProtocol::kAes256: return USM_CREATE_USER_PRIV_AES256;
  }
  return USM_CREATE_USER_PRIV_NONE;
}

// The privacy's key is made by the authentication's protocol as well.
bool PutKey(const std::string& password, const netsnmp_session& session, u_char* key, std::size_t capacity,
            std::size_t& length) {
  length = capacity;
  return generate_Ku(session.securityAuthProto, static_cast<u_int>(session.securityAuthProtoLen),
                     reinterpret_cast<const u_char*>(password.data()), password.size(), key,
                     &length) == SNMPERR_SUCCESS;
}

}  // namespace

bool PutUser(const User& user, SecurityLevel level, netsnmp_session& session) {
  const bool signs = level >= SecurityLevel::kAuthNoPriv;
  const bool encrypts = level >= SecurityLevel::kAuthPriv;
  session.version = SNMP_VERSION_3;
  session.securityModel = SNMP_SEC_MODEL_USM;
  session.securityLevel = static_cast<int>(level);
  session.securityName = const_cast<char*>(user.name.c_str());
  session.securityNameLen = user.name.size();
  session.securityAuthProto =
      sc_get_auth_oid(signs ? NumberOf(user.authProtocol) : NETSNMP_USMAUTH_NOAUTH, &session.securityAuthProtoLen);
  session.securityPrivProto = sc_get_priv_oid(encrypts ? NumberOf(user.privProtocol) : USM_CREATE_USER_PRIV_NONE,
                                              &session.securityPrivProtoLen);
  if (session.securityAuthProto == nullptr || session.securityPrivProto == nullptr) return false;
  if (signs && !PutKey(user.authPassword, session, session.securityAuthKey, sizeof session.securityAuthKey,
                       session.securityAuthKeyLen)) {
    return false;
  }
  return !encrypts || PutKey(user.privPassword, session, session.securityPrivKey, sizeof session.securityPrivKey,
                             session.securityPrivKeyLen);
}

bool AddOwnUser(const User& user) {
  std::array<u_char, 32> self = {};
  netsnmp_session session;
  snmp_sess_init(&session);
  if (!PutUser(user, user.HighestLevel(), session)) return false;
  session.securityEngineID = self.data();
  session.securityEngineIDLen = snmpv3_get_engineID(self.data(), self.size());
  return usm_create_user_from_session(&session) == SNMPERR_SUCCESS;
}

}  // namespace snmp
