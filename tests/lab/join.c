/* Adds a network with the key on standard input, and connects: a program in C that was built elsewhere and runs with
 * the library that is installed. Usage: lab_join INTERFACE SSID */

#include "platwifi.h"

#include <stdio.h>
#include <string.h>
#include <time.h>

enum { COMPLETED = 8, PROPERTIES = 2 };

static void report(void* context, const char* id, const char* text) {
    (void)context;
    fprintf(stderr, "lab_join: %s %s\n", id, text);
}

static int addNetwork(ErrorHandler* errors, const char* interface, const char* ssid,
                      const char* key) {
    const char* const names[] = {"key_mgmt", "psk"};
    const char* values[] = {"2", NULL}; /* KEY_MGMT_WPA_PSK */
    char* secret = NULL;
    int saved;

    if (!addWifiNetwork(errors, interface, ssid) || !platwifiEncrypt(errors, key, &secret))
        return 0;
    values[1] = secret;
    saved = setNetworkParameters(errors, interface, ssid, names, values, PROPERTIES) &&
            saveWifiHostSettings(errors);
    platwifiFree(secret);
    return saved;
}

static int isConnected(ErrorHandler* errors, const char* interface, const char* ssid) {
    char* current = NULL;
    const int same = getCurrentNetwork(errors, interface, &current) && strcmp(current, ssid) == 0;
    platwifiFree(current);
    return same && getDaemonStatus(errors, interface) == COMPLETED;
}

/* The lab ends a job that prints nothing. */
static void waitUntilConnected(ErrorHandler* errors, const char* interface, const char* ssid) {
    const struct timespec pause = {0, 200000000};
    while (!isConnected(errors, interface, ssid))
        nanosleep(&pause, NULL);
}

static int join(ErrorHandler* errors, const char* interface, const char* ssid, const char* key) {
    if (!setWifiProfile(errors, "modern") || !addNetwork(errors, interface, ssid, key) ||
        !connectToNetwork(errors, interface, ssid))
        return 0;
    waitUntilConnected(errors, interface, ssid);
    return 1;
}

int main(int count, char* arguments[]) {
    char key[100];
    ErrorHandler* errors;
    int joined;

    if (count != 3 || fgets(key, sizeof key, stdin) == NULL)
        return 2;
    key[strcspn(key, "\n")] = '\0';
    errors = platwifiNewErrors(report, NULL);
    joined = join(errors, arguments[1], arguments[2], key);
    if (joined)
        printf("connected to %s by version %s\n", arguments[2], platwifiVersion());
    stopWifiService(errors);
    platwifiFreeErrors(errors);
    return joined ? 0 : 1;
}
