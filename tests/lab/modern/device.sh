# The rules of the profile device, with the same access points. A name of 15 characters is too long for it.
# shellcheck shell=bash

test_device() { java_under device; }
