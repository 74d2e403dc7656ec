#!/usr/bin/env python3
"""One HFS+ volume in each kind of image and partition map that can be made here: the same findings, or a sentence.

  image_formats_test.py PROGRAM
"""
import hashlib
import json
import struct
import subprocess
import uuid
import zlib

from program import expect, hfs_image, need, run, scratch

need("mmls")
SECTOR = 512


def gpt(volume):
    """An EFI system partition and the volume, as a Mac lays a disk out."""
    efi = bytes(64 * SECTOR)
    parts = [("C12A7328-F81F-11D2-BA4B-00A0C93EC93B", 40, efi, "EFI System Partition"),
             ("48465300-0000-11AA-AA11-00306543ECAC", 40 + 64, volume, "Macintosh HD")]
    entries = b""
    for kind, first, data, name in parts:
        entries += (uuid.UUID(kind).bytes_le + uuid.uuid4().bytes_le
                    + struct.pack("<QQQ", first, first + len(data) // SECTOR - 1, 0) + name.encode("utf-16-le").ljust(72, b"\0"))
    entries = entries.ljust(128 * 128, b"\0")
    sectors = 40 + 64 + len(volume) // SECTOR + 34
    protective = bytes(446) + struct.pack("<B3sB3sII", 0, b"\0\2\0", 0xEE, b"\xff\xff\xff", 1, sectors - 1)

    def header(own, other, table):
        head = struct.pack("<8sIIIIQQQQ16sQIII", b"EFI PART", 0x10000, 92, 0, 0, own, other, 34, sectors - 35,
                           uuid.uuid4().bytes_le, table, 128, 128, zlib.crc32(entries))
        return (head[:16] + struct.pack("<I", zlib.crc32(head)) + head[20:]).ljust(SECTOR, b"\0")

    start = protective.ljust(510, b"\0") + b"\x55\xaa" + header(1, sectors - 1, 2) + entries
    return (start.ljust(40 * SECTOR, b"\0") + efi + volume + entries + header(sectors - 1, 1, sectors - 33))


def mbr(volume):
    table = struct.pack("<B3sB3sII", 0, b"\0\2\0", 0xAF, b"\xff\xff\xff", 63, len(volume) // SECTOR)
    return (bytes(446) + table).ljust(510, b"\0") + b"\x55\xaa" + bytes(62 * SECTOR) + volume


def fixed_vhd(disk):
    foot = struct.pack(">8sIIQI4sI4sQQHBBI", b"conectix", 2, 0x10000, 0xFFFFFFFFFFFFFFFF, 0, b"test", 0x10000, b"Mac ",
                       len(disk), len(disk), len(disk) // SECTOR // 16 // 63 + 1, 16, 63, 2)
    foot = foot + bytes(4) + uuid.uuid4().bytes + bytes(1)
    foot = foot.ljust(SECTOR, b"\0")
    return disk + foot[:64] + struct.pack(">I", ~sum(foot) & 0xFFFFFFFF) + foot[68:]


def sparse_vmdk(disk):
    """One file: header, description, grain tables, grains of 64 KiB."""
    grain = 128
    grains = -(-len(disk) // (grain * SECTOR))
    tables = -(-grains // 512)
    words = ('# Disk DescriptorFile\nversion=1\nCID=12345678\nparentCID=ffffffff\ncreateType="monolithicSparse"\n'
             f'\n# Extent description\nRW {grains * grain} SPARSE "mac.vmdk"\n\n# The Disk Data Base \n#DDB\n\n'
             'ddb.adapterType = "ide"\n').encode().ljust(20 * SECTOR, b"\0")
    directory, table = 21, 22
    data = table + tables * 4
    data += -data % grain
    head = struct.pack("<4sIIQQQQIQQQB4sH", b"KDMV", 1, 3, grains * grain, grain, 1, 20, 512, directory, directory,
                       data, 0, b"\n \r\n", 0).ljust(SECTOR, b"\0")
    out = head + words + struct.pack(f"<{tables}I", *(table + 4 * i for i in range(tables))).ljust(SECTOR, b"\0")
    out += struct.pack(f"<{grains}I", *(data + i * grain for i in range(grains))).ljust(tables * 4 * SECTOR, b"\0")
    return out.ljust(data * SECTOR, b"\0") + disk.ljust(grains * grain * SECTOR, b"\0")


def scan(path, data):
    path.write_bytes(data)
    done = run("scan", "--no-store", "--hash", "--format", "json", "--image", path, timeout=120)
    paths = [item["path"] for item in json.loads(done.stdout)["report"]["spyWareList"]] if done.stdout else []
    return done, sorted(paths)


def main(folder):
    expected = ["/Library/LaunchAgents/com.refog.agent.plist", "/Users/alice/Library/mdsa1331"]
    image = hfs_image(folder / "apm.img", [path[1:] for path in expected])
    parts = subprocess.run(["mmls", str(image)], check=True, capture_output=True, text=True).stdout
    unit = int(parts.split("Units are in ")[1].split("-")[0])
    row = next(line for line in parts.splitlines() if "Apple_HFS" in line).split()
    whole = image.read_bytes()
    volume = whole[int(row[2]) * unit:(int(row[3]) + 1) * unit]
    volume = volume.ljust(len(volume) + -len(volume) % 4096, b"\0")
    for name, data in (("whole.dd", volume), ("apm.dd", whole), ("gpt.dd", gpt(volume)), ("mbr.dd", mbr(volume)),
                       ("fixed.vhd", fixed_vhd(gpt(volume))), ("mac.vmdk", sparse_vmdk(gpt(volume)))):
        done, paths = scan(folder / name, data)
        expect(done.returncode == 1 and paths == expected, name, done.returncode, paths, done.stderr)
        listed = run("listing", "--list", "--image", folder / name)
        expect(listed.returncode == 0 and "HFS+" in listed.stdout, name, listed)
        expect(hashlib.sha256(data).hexdigest() in done.stdout and (folder / name).read_bytes() == data,
               "the hash told, and the image is as it was")
    # Ones that cannot be read, or are of no Mac, end in a sentence.
    other = hfs_image(folder / "other.img", ["photos/beach.jpg"])
    expect("/photos/beach.jpg" in run("listing", "--image", other, code=0).stdout, "another's disk can be listed")
    flat = b'# Disk DescriptorFile\nversion=1\nCID=1\nparentCID=ffffffff\ncreateType="monolithicFlat"\nRW 100 FLAT "x-flat.vmdk" 0\n'
    for name, data in (("flat.vmdk", flat), ("mac.vhdx", b"vhdxfile" + bytes(1 << 20)), ("mac.dmg", bytes(1 << 20) + b"koly" + bytes(508)),
                       ("photos.dd", other.read_bytes()), ("empty.dd", b""), ("mac.E01", b"EVF\t\r\n\xff\0" + bytes(4096)), ("text.dd", b"no image\n" * 1000)):
        done, _ = scan(folder / name, data)
        expect(done.returncode == 2 and not done.stdout and len(done.stderr) > 40, name, done)
        print(f"{name}: {done.stderr.strip().replace(str(folder), '')}")


with scratch() as place:
    main(place)
