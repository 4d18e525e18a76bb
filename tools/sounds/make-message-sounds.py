#!/usr/bin/env python3
"""Makes the message box's own sounds (resources/sounds/*.wav): short, soft tones with a quick
attack and a long decay, one for each icon. Run it again after changing a sound; the files it
writes are kept in the repository, so a build needs no Python."""

import math
import pathlib
import struct
import wave

RATE = 22050


def tone(frequency, seconds, volume, decay, overtone=0.25):
    frames = int(RATE * seconds)
    for n in range(frames):
        t = n / RATE
        attack = min(1.0, t / 0.006)
        envelope = attack * math.exp(-t * decay)
        wave_ = math.sin(2 * math.pi * frequency * t)
        wave_ += overtone * math.sin(2 * math.pi * 2 * frequency * t)
        yield volume * envelope * wave_ / (1 + overtone)


def silence(seconds):
    return [0.0] * int(RATE * seconds)


def mix(*parts):
    """Lays the parts after each other, each starting at its offset in seconds."""
    length = max(int(offset * RATE) + len(samples) for offset, samples in parts)
    out = [0.0] * length
    for offset, samples in parts:
        start = int(offset * RATE)
        for i, value in enumerate(samples):
            out[start + i] += value
    return out


SOUNDS = {
    # Two bright notes rising a major third: something to know.
    "information": mix((0.0, list(tone(1046.5, 0.45, 0.35, 7))),
                       (0.11, list(tone(1318.5, 0.55, 0.35, 6)))),
    # A rising fourth that ends higher than it starts: a question.
    "question": mix((0.0, list(tone(784.0, 0.3, 0.33, 9))),
                    (0.14, list(tone(1046.5, 0.5, 0.33, 6)))),
    # Two equal short pips: attention.
    "exclamation": mix((0.0, list(tone(880.0, 0.18, 0.4, 14))),
                       (0.16, list(tone(880.0, 0.3, 0.4, 10)))),
    # A low falling pair with a dull body: something went wrong.
    "critical": mix((0.0, list(tone(392.0, 0.35, 0.45, 8, 0.5))),
                    (0.15, list(tone(293.7, 0.6, 0.45, 5, 0.5)))),
}


def main():
    folder = pathlib.Path(__file__).resolve().parents[2] / "resources" / "sounds"
    folder.mkdir(parents=True, exist_ok=True)
    for name, samples in SOUNDS.items():
        with wave.open(str(folder / f"{name}.wav"), "wb") as out:
            out.setnchannels(1)
            out.setsampwidth(2)
            out.setframerate(RATE)
            peak = max(abs(s) for s in samples) or 1.0
            scale = min(1.0, 0.9 / peak)
            out.writeframes(b"".join(
                struct.pack("<h", int(max(-1.0, min(1.0, s * scale)) * 32767))
                for s in samples))


if __name__ == "__main__":
    main()
