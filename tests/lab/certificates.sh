# Makes the certificates of the enterprise access point and of a station that authenticates by one.
# shellcheck shell=bash

CERTIFICATE_DAYS=7300

# issue FOLDER NAME EXTENSIONS: NAME.key and NAME.pem, signed by the authority.
issue() {
    local folder=$1 name=$2 extensions=$3
    openssl req -newkey rsa:2048 -nodes -subj "/O=Lab/CN=$name.lab.test" \
        -keyout "$folder/$name.key" -out "$folder/$name.csr"
    openssl x509 -req -in "$folder/$name.csr" -CA "$folder/ca.pem" -CAkey "$folder/ca.key" \
        -CAcreateserial -days "$CERTIFICATE_DAYS" -extfile <(printf '%s\n' "$extensions") \
        -out "$folder/$name.pem"
    rm "$folder/$name.csr"
}

make_certificates() {
    local folder=$1
    openssl req -x509 -newkey rsa:2048 -nodes -subj "/O=Lab/CN=Lab authority" \
        -days "$CERTIFICATE_DAYS" -keyout "$folder/ca.key" -out "$folder/ca.pem"
    issue "$folder" server $'extendedKeyUsage=serverAuth\nsubjectAltName=DNS:server.lab.test'
    issue "$folder" client 'extendedKeyUsage=clientAuth'
    openssl rsa -aes256 -passout "pass:$LAB_KEY_PASSWORD" \
        -in "$folder/client.key" -out "$folder/client-encrypted.key"
    # An authority that signed nothing here, for a station that must refuse the access point.
    openssl req -x509 -newkey rsa:2048 -nodes -subj "/O=Lab/CN=Other authority" \
        -days "$CERTIFICATE_DAYS" -keyout "$folder/other-ca.key" -out "$folder/other-ca.pem"
}

# build_certificates FOLDER: ca, other-ca, server, client (.pem, .key) and
# client-encrypted.key.
build_certificates() {
    step "making certificates (once)"
    # A failing step ends a subshell only where nothing tests the subshell's status directly.
    local status
    set +e
    (set -e; make_certificates "$@") >"$1/openssl.log" 2>&1
    status=$?
    set -e
    [ "$status" = 0 ] || fail "openssl cannot make certificates: $(tail -n 1 "$1/openssl.log")"
    rm "$1/openssl.log"
}
