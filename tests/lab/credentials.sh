# The keys and passwords of the access points, for these and for the jobs.
# shellcheck shell=bash

export LAB_PASSPHRASE='lab passphrase 1'
export LAB_SAE_PASSWORD='lab 4' # shorter than a WPA passphrase can be
export LAB_WEP_KEY=1a2b3c4d5e
export LAB_IDENTITY=alice
export LAB_PASSWORD='lab password 2'
export LAB_KEY_PASSWORD='lab key password 3'
