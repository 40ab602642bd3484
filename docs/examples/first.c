#include <platwifi.h>
#include <stdio.h>

static void report(void *context, const char *id, const char *text)
{
    (void)context;
    fprintf(stderr, "error %s: %s\n", id, text);
}

int main(void)
{
    ErrorHandler *errors = platwifiNewErrors(report, NULL);
    char *name;
    const int found = getWifiAdapter(errors, &name);
    printf("first adapter: %s, libplatwifi %s\n", found ? name : "none", platwifiVersion());
    platwifiFree(name);
    stopWifiService(errors);
    platwifiFreeErrors(errors);
    return found ? 0 : 1;
}
