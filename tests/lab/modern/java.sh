# The rules of the profile modern; networks of today, side by side, from Java.
# shellcheck shell=bash

test_java() { java_under modern; }
