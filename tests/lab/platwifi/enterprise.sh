# An enterprise network with PEAP: with the right password, and with a wrong one.
# shellcheck shell=bash

test_enterprise() {
    echo "$LAB_PASSWORD" >/tmp/password
    run "add with PEAP" 0 add lab-eap key_mgmt=WPA-EAP eap=PEAP "eapIdentity=$LAB_IDENTITY" \
        eapPassword=@/tmp/password phase2=auth=MSCHAPV2 "CACertificateFile=$LAB_CERTIFICATES/ca.pem"
    file_has "identity=\"$LAB_IDENTITY\""
    file_has "password=\"$LAB_PASSWORD\""
    run "show" 0 show lab-eap --json
    json_has /ssid lab-eap /eap PEAP /eapIdentity "$LAB_IDENTITY" /eapPassword true /psk false \
        /phase2 auth=MSCHAPV2 /CACertificateFile "$LAB_CERTIFICATES/ca.pem"
    connects lab-eap
    run "disconnect" 0 disconnect --json
    json_has /ssid lab-eap /done disconnected
    run "set a wrong password" 0 set lab-eap eapPassword=- <<<'not the password'
    gives_up lab-eap 12 'the server refuses the login: the identity or the password is wrong; '
    forget_networks
}
