// The supplicant's client library is compiled for glibc, with its checks of buffers. musl has no functions with
// these names.

#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/select.h>

extern "C" {

int __snprintf_chk(char* out, size_t size, int /*flag*/, size_t room, const char* format, ...) {
    if (size > room)
        abort();
    va_list arguments;
    va_start(arguments, format);
    const int length = vsnprintf(out, size, format, arguments);
    va_end(arguments);
    return length;
}

int __fprintf_chk(FILE* file, int /*flag*/, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = vfprintf(file, format, arguments);
    va_end(arguments);
    return length;
}

// The place of a descriptor's bit among the words of an fd_set.
long __fdelt_chk(long descriptor) {
    if (descriptor < 0 || descriptor >= FD_SETSIZE)
        abort();
    return descriptor / static_cast<long>(8 * sizeof(long));
}

} // extern "C"
