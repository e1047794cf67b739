"""As much of SNMP's octets as tests need that ask faster than programs can be started, or as no program does."""


def _tlv(tag, content):
    size = len(content)
    length = bytes([size]) if size < 128 else bytes([0x82, size >> 8, size & 0xFF])
    return bytes([tag]) + length + content


def _integer(number):
    return _tlv(2, number.to_bytes(number.bit_length() // 8 + 1, "big", signed=True))


def _value(value):
    return _tlv(4, value.encode()) if isinstance(value, str) else _integer(value)


def _oid(text):
    numbers = [int(number) for number in text.split(".")]
    content = bytearray()
    for number in [numbers[0] * 40 + numbers[1]] + numbers[2:]:
        octets = [number & 0x7F]
        while number := number >> 7:
            octets.append(number & 0x7F | 0x80)
        content += bytes(reversed(octets))
    return _tlv(6, bytes(content))


def set_request(community, request_id, values):
    """A Set of integers and texts by OID."""
    variables = b"".join(_tlv(0x30, _oid(oid) + _value(value)) for oid, value in values)
    pdu = _tlv(0xA3, _integer(request_id) + _integer(0) + _integer(0) + _tlv(0x30, variables))
    return _tlv(0x30, _integer(1) + _tlv(4, community.encode()) + pdu)


GET, SET, BULK = 0xA0, 0xA3, 0xA5


def v3_request(user, engine, boots, request_id, oids, command=GET, max_size=65507):
    """A request that is neither signed nor encrypted. Without a user and an engine it asks which engine there is. Of a
    Set the values stand with the OIDs."""
    values = [(oid, _value(value)) for oid, value in oids] if command == SET else [(oid, _tlv(5, b"")) for oid in oids]
    variables = b"".join(_tlv(0x30, _oid(oid) + value) for oid, value in values)
    repetitions = 50 if command == BULK else 0
    pdu = _tlv(command, _integer(request_id) + _integer(0) + _integer(repetitions) + _tlv(0x30, variables))
    reportable, by_users = b"\x04", 3
    header = _integer(request_id) + _integer(max_size) + _tlv(4, reportable) + _integer(by_users)
    security = _tlv(4, engine) + _integer(boots) + _integer(0) + _tlv(4, user.encode()) + _tlv(4, b"") + _tlv(4, b"")
    scoped = _tlv(4, engine) + _tlv(4, b"") + pdu
    return _tlv(0x30, _integer(3) + _tlv(0x30, header) + _tlv(4, _tlv(0x30, security)) + _tlv(0x30, scoped))


def v3_response(datagram):
    """The error status, and how many variables there are."""
    scoped = list(_parts(next(_parts(datagram))))[3]
    fields = list(_parts(list(_parts(scoped))[2]))
    return int.from_bytes(fields[1], "big"), len(list(_parts(fields[3])))


def engine_of(datagram):
    """The engine that sent a message of version 3."""
    security = list(_parts(next(_parts(datagram))))[2]
    return next(_parts(next(_parts(security))))


def _parts(content):
    while content:
        size, start = content[1], 2
        if size & 0x80:
            start += size & 0x7F
            size = int.from_bytes(content[2:start], "big")
        yield content[start : start + size]
        content = content[start + size :]


def response(datagram):
    """The request's number, the error status and the error index."""
    pdu = list(_parts(next(_parts(datagram))))[2]
    return tuple(int.from_bytes(number, "big", signed=True) for number in list(_parts(pdu))[:3])
