#include "events/EapCodes.h"

#include "events/CodeTable.h"

namespace cli {
namespace {

constexpr CodeMeaning CERTIFICATE_FAULTS[] = {
    {0, "the certificate of the server is not accepted"},
    {1, "the certificate of the server is not trusted: no configured authority has issued it"},
    {2, "the certificate of the server is revoked"},
    {3, "the certificate of the server is not valid yet: check the clock of this host"},
    {4, "the certificate of the server has expired: check the clock of this host"},
    {5, "the subject of the server's certificate is not the configured one"},
    {6, "the alternative subject of the server's certificate is not the configured one"},
    {7, "the certificate of the server is damaged, or not made for a server"},
    {8, "the server was only asked for its certificate"},
    {9, "the domain of the server's certificate does not end with the configured one"},
    {10, "the domain of the server's certificate is not the configured one"},
    {11, "the key of the server's certificate is too short"},
    {12, "the distinguished name of the server's certificate is not the configured one"},
};

constexpr CodeMeaning LOGIN_FAULTS[] = {
    {646, "this account may not log in at this time of day"},
    {647, "this account is disabled"},
    {648, "the password has expired"},
    {649, "this account may not use the network"},
    {691, "the identity or the password is wrong"},
    {709, "the password could not be changed"},
};

constexpr CodeMeaning METHODS[] = {
    {4, "MD5"},   {6, "GTC"},  {13, "TLS"},  {17, "LEAP"},     {18, "SIM"},
    {21, "TTLS"}, {23, "AKA"}, {25, "PEAP"}, {26, "MSCHAPV2"}, {43, "FAST"},
    {46, "PAX"},  {47, "PSK"}, {48, "SAKE"}, {49, "IKEV2"},    {50, "AKA'"},
    {51, "GPSK"}, {52, "PWD"}, {53, "EKE"},  {55, "TEAP"},
};

} // namespace

const char* certificateMeaning(int code) {
    return meaningIn(CERTIFICATE_FAULTS, code);
}

const char* loginMeaning(int code) {
    return meaningIn(LOGIN_FAULTS, code);
}

const char* eapMethodName(int number) {
    return meaningIn(METHODS, number);
}

} // namespace cli
