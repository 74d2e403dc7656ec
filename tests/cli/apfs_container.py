"""Small APFS volumes: reads the one tree node of a container that a Mac made, and writes it anew."""
import lzma
import os
import pathlib
import struct
import unicodedata

BLOCK = 4096
INODE, DIRECTORY_RECORD = 3, 9
FOLDER, FILE, LINK = 4, 8, 10  # what a directory record says its item is
MODES = {FOLDER: 0o040755, FILE: 0o100644, LINK: 0o120755}
ROOT = 2
MAC = {  # a Mac's disk of the items that the container has
    (ROOT, "Library"): (16, FOLDER),
    (16, "LaunchAgents"): (21, FOLDER),
    (21, "com.refog.agent.plist"): (22, FILE),
    (16, "plain.txt"): (26, FILE),
    (ROOT, "Users"): (17, FOLDER),
    (17, "alice"): (19, FOLDER),
    (19, "Aobo Keylogger Pro.pdf"): (18, FILE),
    (19, "LIBRARY"): (23, FOLDER),  # another case than asked for
    (23, "mdsa1331"): (25, FILE),
}
CRC32C = []
for byte in range(256):
    value = byte
    for _ in range(8):
        value = value >> 1 ^ (0x82F63B78 if value & 1 else 0)
    CRC32C.append(value)


def sample():
    """The container, where PRYVANE_SAMPLES names a folder with it."""
    file = pathlib.Path(os.environ.get("PRYVANE_SAMPLES", "")) / "apfs.raw.xz"
    return lzma.decompress(file.read_bytes()) if file.is_file() else None


def name_hash(name):
    """Length and hash as a directory record carries them: CRC-32C of the folded name."""
    crc = 0xFFFFFFFF
    folded = unicodedata.normalize("NFD", unicodedata.normalize("NFD", name).casefold())
    for byte in folded.encode("utf-32-le"):
        crc = crc >> 8 ^ CRC32C[(crc ^ byte) & 0xFF]
    return (crc & 0x3FFFFF) << 10 | len(name.encode()) + 1


def checksum(block):
    """Fletcher's, over all but the checksum itself."""
    low = high = 0
    for (word,) in struct.iter_unpack("<I", block[8:]):
        low = (low + word) % 0xFFFFFFFF
        high = (high + low) % 0xFFFFFFFF
    first = 0xFFFFFFFF - (low + high) % 0xFFFFFFFF
    return struct.pack("<II", first, 0xFFFFFFFF - (low + first) % 0xFFFFFFFF)


class Node:
    """A tree that is one node, root and leaf at once, with records of any length."""

    def __init__(self, block):
        self.head, self.info = bytes(block[:56]), bytes(block[-40:])
        flags, level, count, table, length = struct.unpack_from("<HHIHH", block, 32)
        assert flags == 3 and level == 0, "not a node that is root and leaf"
        self.room = length
        keys, values = 56 + table + length, BLOCK - 40
        self.records = []
        for i in range(count):
            key, key_length, value, value_length = struct.unpack_from("<HHHH", block, 56 + table + 8 * i)
            self.records.append((bytes(block[keys + key:keys + key + key_length]),
                                 bytes(block[values - value:values - value + value_length])))

    def block(self):
        records = sorted(self.records, key=lambda record: order(record[0]))
        table, keys, values = b"", b"", b""
        for key, value in records:
            values = value + values
            table += struct.pack("<HHHH", len(keys), len(key), len(values), len(value))
            keys += key
        room = max(self.room, len(table))
        free = BLOCK - 56 - room - 40 - len(keys) - len(values)
        assert free >= 0, "too many records for one node"
        body = table.ljust(room, b"\0") + keys + bytes(free) + values
        head = self.head[:32] + struct.pack("<HHIHHHHHHHH", 3, 0, len(records), 0, room, len(keys), free,
                                            0xFFFF, 0, 0xFFFF, 0)
        longest = struct.pack("<IIQ", max(len(k) for k, _ in records), max(len(v) for _, v in records), len(records))
        made = head + body + self.info[:16] + longest + self.info[32:]
        return checksum(made) + made[8:]


def order(key):
    (identity,) = struct.unpack_from("<Q", key)
    rest = key[8:]
    if identity >> 60 == DIRECTORY_RECORD:
        rest = (struct.unpack_from("<I", key, 8)[0], rest[4:])
    return identity & (1 << 60) - 1, identity >> 60, rest


def tree_blocks(image):
    """The numbers of the blocks that hold the newest tree of files, and of the newest volume."""
    blocks = {}
    for number in range(len(image) // BLOCK):
        block = image[number * BLOCK:(number + 1) * BLOCK]
        identity, when, kind, subtype = struct.unpack_from("<QQII", block, 8)
        if block[32:36] == b"APSB":
            blocks.setdefault("volume", []).append((when, number))
        elif kind & 0xFFFF == 2 and subtype == 14:
            blocks.setdefault("tree", []).append((when, number))
    return max(blocks["tree"])[1], max(blocks["volume"])[1]


def with_tree(image, items):
    """The container with this tree of files in place of its own. `items` is what stands where: (identity of the
    folder, name) to (identity of the item, kind); the items are ones that the container has."""
    number, _ = tree_blocks(image)
    node = Node(image[number * BLOCK:(number + 1) * BLOCK])
    dates, kept = {}, []
    for key, value in node.records:
        (identity,) = struct.unpack_from("<Q", key)
        folder, kind = identity & (1 << 60) - 1, identity >> 60
        if kind == DIRECTORY_RECORD and folder >= ROOT:
            (item,) = struct.unpack_from("<Q", value)
            name = key[12:-1].decode()
            assert struct.unpack_from("<I", key, 8)[0] == name_hash(name), "the hash of a name that a Mac wrote"
            dates[item] = value[8:16]
            continue
        kept.append((key, bytearray(value)))
    for (folder, name), (item, kind) in items.items():
        key = struct.pack("<QI", folder | DIRECTORY_RECORD << 60, name_hash(name)) + name.encode() + b"\0"
        node_value = struct.pack("<Q", item) + dates[item] + struct.pack("<H", kind)
        kept.append((key, node_value))
        inode = struct.pack("<Q", item | INODE << 60)
        value = next(v for k, v in kept if k == inode)
        struct.pack_into("<Q", value, 0, folder)
        struct.pack_into("<H", value, 80, MODES[kind])
    node.records = kept
    return image[:number * BLOCK] + node.block() + image[(number + 1) * BLOCK:]


def with_volume(image, change):
    """The container with another superblock of its newest volume: `change` gets its bytes to alter."""
    _, number = tree_blocks(image)
    block = bytearray(image[number * BLOCK:(number + 1) * BLOCK])
    change(block)
    block = checksum(bytes(block)) + bytes(block[8:])
    return image[:number * BLOCK] + block + image[(number + 1) * BLOCK:]
