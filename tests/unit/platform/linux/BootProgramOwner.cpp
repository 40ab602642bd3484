// A program that contains the platform's code: prints where it finds the program of a path.

#include "platform/BootProgram.h"

#include <iostream>

int main(int count, char* arguments[]) {
    if (count != 2)
        return 2;
    std::cout << platform::locateProgram(arguments[1]) << '\n';
}
