#!/usr/bin/python3
"""Whether a finished recording is an ordinary file: by ISO/IEC 14496-12 read anew here, by ffprobe, GStreamer, MediaInfo.

    check_m4a.py FILE SAMPLES      prints each thing that is wrong; status 1 when there is one
"""

import array
import json
import re
import struct
import subprocess
import sys

RATE = 44100
PRIMING = 1024
CONTAINERS = {b"moov", b"trak", b"edts", b"mdia", b"minf", b"dinf", b"stbl"}
REQUIRED = ["mvhd", "trak/tkhd", "trak/edts/elst", "trak/mdia/mdhd", "trak/mdia/hdlr", "trak/mdia/minf/smhd",
            "trak/mdia/minf/dinf/dref", "trak/mdia/minf/stbl/stsd", "trak/mdia/minf/stbl/stts",
            "trak/mdia/minf/stbl/stsc", "trak/mdia/minf/stbl/stsz", "trak/mdia/minf/stbl/stco"]

problems = []


def expect(what, found, wanted):
    if found != wanted:
        problems.append(f"{what}: {found!r}, not {wanted!r}")


def boxes(data, start, end, path=""):
    """{path: (start of payload, end)} of every box; they must fill their container to the byte."""
    found = {}
    while start < end:
        size, kind = struct.unpack_from(">I4s", data, start)
        if size < 8 or start + size > end:
            problems.append(f"{path}{kind}: {size} bytes do not fit")
            return found
        name = path + kind.decode("latin-1")
        if name in found:
            problems.append(f"{name}: twice")
        found[name] = (start + 8, start + size)
        if kind in CONTAINERS:
            found.update(boxes(data, start + 8, start + size, name + "/"))
        start += size
    return found


def numbers(data, span, skip=0):
    start, end = span
    return struct.unpack(f">{(end - start - skip) // 4}I", data[start + skip:start + skip + (end - start - skip) // 4 * 4])


def check_structure(data, samples):
    found = boxes(data, 0, len(data))
    expect("outermost boxes", [name for name in found if "/" not in name], ["ftyp", "moov", "mdat"])
    for name in REQUIRED:
        if f"moov/{name}" not in found:
            problems.append(f"{name} is missing")
    if problems:
        return
    expect("brand", data[8:12], b"M4A ")
    table = {name.rsplit("/", 1)[-1]: span for name, span in found.items()}
    expect("mvhd", numbers(data, table["mvhd"])[3:5], (RATE, samples))
    expect("tkhd", numbers(data, table["tkhd"])[5], samples)
    expect("mdhd", numbers(data, table["mdhd"])[3:5], (RATE, samples + PRIMING))
    expect("elst", numbers(data, table["elst"]), (0, 1, samples, PRIMING, 0x10000))
    check_tables(data, table, samples)
    check_decoder_config(data[slice(*table["stsd"])])


def check_tables(data, table, samples):
    count, *durations = numbers(data, table["stts"], 4)
    expect("entries of stts", len(durations), 2 * count)
    packets = sum(durations[::2])
    expect("durations", sum(a * b for a, b in zip(durations[::2], durations[1::2])), samples + PRIMING)
    same, count, *sizes = numbers(data, table["stsz"], 4)
    expect("stsz", (same, count, len(sizes)), (0, packets, packets))
    count, *runs = numbers(data, table["stsc"], 4)
    expect("entries of stsc", len(runs), 3 * count)
    count, *offsets = numbers(data, table["stco"], 4)
    expect("entries of stco", len(offsets), count)
    runs = [runs[i:i + 3] for i in range(0, len(runs), 3)] + [[len(offsets) + 1, 0, 0]]
    chunks = [each for (first, each, _), (after, *_) in zip(runs, runs[1:]) for _ in range(after - first)]
    expect("packets in chunks", sum(chunks), packets)
    position, end = table["mdat"]
    for chunk, (offset, each) in enumerate(zip(offsets, chunks)):
        expect(f"chunk {chunk}", offset, position)
        position += sum(sizes[:each])
        del sizes[:each]
    expect("end of the media", position, end)
    expect("sbgp", numbers(data, table["sbgp"], 4), (struct.unpack(">I", b"roll")[0], 1, packets, 1))


def check_decoder_config(description):
    """The descriptors of ISO/IEC 14496-1 must each end where the one around it says."""
    at = description.index(b"esds") + 8
    end = at - 12 + struct.unpack_from(">I", description, at - 12)[0]
    for tag, skip in ((3, 3), (4, 13), (5, 0)):
        expect("descriptor", description[at], tag)
        length, at = 0, at + 1
        while True:
            length, more, at = length << 7 | description[at] & 0x7f, description[at] & 0x80, at + 1
            if not more:
                break
        if at + length > end:
            problems.append(f"descriptor {tag} is too long")
        at += skip
    expect("AAC-LC, 44100 Hz, mono", description[at:at + 2], b"\x12\x08")


def run(*command):
    result = subprocess.run(command, capture_output=True, check=False)
    if result.returncode or result.stderr:
        problems.append(f"{command[0]}: {result.stderr.decode(errors='replace').strip()}")
    return result.stdout


def check_ffprobe(path, samples):
    found = json.loads(run("ffprobe", "-v", "warning", "-of", "json", "-show_streams", "-show_format", path))
    stream, form = found["streams"][0], found["format"]
    wanted = {"codec_name": "aac", "profile": "LC", "channels": 1, "sample_rate": str(RATE), "duration_ts": samples,
              "time_base": f"1/{RATE}", "nb_frames": str(-(-(samples + PRIMING) // 1024))}
    expect("ffprobe", {key: stream.get(key) for key in wanted}, wanted)
    expect("ffprobe, brand", form["tags"]["major_brand"], "M4A ")
    expect("ffprobe, streams", form["nb_streams"], 1)


def check_mediainfo(path, samples):
    tracks = json.loads(run("mediainfo", "--Output=JSON", path))["media"]["track"]
    sound = next(track for track in tracks if track["@type"] == "Audio")
    wanted = {"Format": "AAC", "Format_AdditionalFeatures": "LC", "Channels": "1", "SamplingRate": str(RATE)}
    expect("mediainfo", {key: sound.get(key) for key in wanted}, wanted)
    expect("mediainfo, header in front", tracks[0].get("IsStreamable"), "Yes")
    if abs(float(sound.get("Duration", 0)) - samples / RATE) > 0.001:
        problems.append(f"mediainfo: {sound.get('Duration')} s")


def check_gstreamer(path, samples):
    told = re.search(r"Duration: 0:(\d\d):(\d\d\.\d+)", run("gst-discoverer-1.0", path).decode())
    seconds = int(told[1]) * 60 + float(told[2]) if told else -1
    if abs(seconds - samples / RATE) > 1e-6:
        problems.append(f"GStreamer: {seconds} s, not {samples / RATE}")
    # Without a player's clock it keeps the run-up, and its decoder keeps the last packet to itself.
    raw = run("gst-launch-1.0", "-q", "filesrc", f"location={path}", "!", "qtdemux", "!", "avdec_aac", "!",
              "audioconvert", "!", "audio/x-raw,format=F32LE", "!", "fdsink")
    theirs = array.array("f", raw)[PRIMING:PRIMING + samples]
    ours = array.array("f", run("ffmpeg", "-v", "warning", "-i", path, "-f", "f32le", "-"))[:samples]
    expect("samples that ffmpeg decodes", len(ours), samples)
    if len(theirs) < samples - 1024:
        problems.append(f"GStreamer decodes {len(theirs)} samples")
    if any(abs(a - b) > 1e-6 for a, b in zip(theirs, ours)):
        problems.append("GStreamer and ffmpeg hear different sounds")


def main():
    path, samples = sys.argv[1], int(sys.argv[2])
    with open(path, "rb") as file:
        check_structure(file.read(), samples)
    if not problems:
        check_ffprobe(path, samples)
        check_mediainfo(path, samples)
        check_gstreamer(path, samples)
    print("\n".join(problems))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
