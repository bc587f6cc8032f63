#!/bin/sh
# Makes Gus.psg, the call of the mascot, beside this script: a RIFF WAVE, 16-bit mono, 22050 Hz.
# Needs sox. The noise has a fixed seed and there is no dither, so each run of the same sox gives the same file.
set -eu

here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Note LENGTH FROM TO FILE: a reedy tone gliding between two pitches in Hz. The two waves lie a little
# apart and beat against each other, which makes the tone rough; the gain drives them into each other.
Note() {
    sox -R -D -n -r 22050 -b 16 -c 1 "$work/$4" \
        synth "$1" sawtooth "$2:$3" synth "$1" square mix "$(($2 + 9)):$(($3 + 6))" \
        overdrive 6 tremolo 34 25 \
        equalizer 1050 1.2q 12 equalizer 2300 2q 8 highpass 250 lowpass 4800 \
        fade q 0.02 "$1" 0.08 gain -n -4
}

Note 0.24 300 390 low.wav
Note 0.46 520 400 high.wav
sox -R -D "$work/low.wav" "$work/high.wav" "$work/honk.wav" pad 0 0.1

# The breath that goes with it, and lasts a little longer.
sox -R -D -n -r 22050 -b 16 -c 1 "$work/breath.wav" \
    synth 0.8 pinknoise bandpass 1800 1.2q fade q 0.1 0.8 0.35 gain -n -22

sox -R -D -m "$work/honk.wav" "$work/breath.wav" -t wav -e signed-integer -b 16 -r 22050 -c 1 "$here/Gus.psg" gain -n -3
