"""A network between a manager and an agent that loses, doubles, delays, reorders and spoils datagrams."""

import heapq
import random
import select
import socket
import threading
import time


def broken(chance, whole):
    """The datagram with some of its octets changed, left out, doubled or cut off."""
    octets = bytearray(whole)
    for _ in range(chance.randrange(1, 5)):
        place = chance.randrange(len(octets))
        kind = chance.randrange(5)
        if kind < 2:
            octets[place] = chance.randrange(256)
        elif kind == 2:
            octets[place] = chance.choice([0, 1, 0x7F, 0x80, 0x81, 0x84, 0xFF])
        elif kind == 3:
            del octets[place : place + chance.randrange(1, 9)]
        else:
            octets[place:place] = octets[place : place + chance.randrange(1, 9)]
        if not octets:
            return b"\0"
    return bytes(octets)


class Relay:
    """Datagrams to `port` go on to the agent at `address`, and its answers back. Chances are from 0 to 1, that of
    an answer to be `spoilt` too, times in seconds; each datagram takes `delay` and up to `jitter` more."""

    def __init__(self, address, loss=0.0, twice=0.0, delay=0.0, jitter=0.0, spoilt=0.0, seed=1):
        host, port = address.rsplit(":", 1)
        self._agent = (host, int(port))
        self.loss, self.twice, self.delay, self.jitter, self.spoilt = loss, twice, delay, jitter, spoilt
        self.passed = self.lost = 0
        self.most = None  # after so many nothing passes any more; None: as many as there are
        self._chance = random.Random(seed)
        self._near = self._socket()
        self._near.bind(("127.0.0.1", 0))
        self._far = self._socket()
        self._far.bind(("127.0.0.1", 0))
        self._manager = None
        self._ends, self._end = socket.socketpair()
        self.port = self._near.getsockname()[1]
        self._thread = threading.Thread(target=self._run, daemon=True)
        self._thread.start()

    def close(self):
        self._end.close()
        self._thread.join()
        for each in (self._near, self._far, self._ends):
            each.close()

    @staticmethod
    def _socket():
        made = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        made.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 4 << 20)
        return made

    def _run(self):
        waiting, count = [], 0
        while True:
            rest = max(0.0, waiting[0][0] - time.monotonic()) if waiting else None
            ready = select.select([self._near, self._far, self._ends], [], [], rest)[0]
            if self._ends in ready:
                return
            for came in ready:
                datagram, sender = came.recvfrom(65535)
                if came is self._near:
                    self._manager = sender
                elif self._chance.random() < self.spoilt:
                    datagram = broken(self._chance, datagram)
                for _ in range(self._copies()):
                    count += 1
                    due = time.monotonic() + self.delay + self._chance.random() * self.jitter
                    heapq.heappush(waiting, (due, count, came is self._near, datagram))
            while waiting and waiting[0][0] <= time.monotonic():
                _, _, is_request, datagram = heapq.heappop(waiting)
                if is_request:
                    self._far.sendto(datagram, self._agent)
                else:
                    self._near.sendto(datagram, self._manager)

    def _copies(self):
        is_full = self.most is not None and self.passed >= self.most
        if is_full or self._chance.random() < self.loss:
            self.lost += 1
            return 0
        self.passed += 1
        return 2 if self._chance.random() < self.twice else 1
