// The floor of a command line's start-up: a program that links QtCore and prints its version.
#include <QtGlobal>

#include <cstdio>

int main()
{
    std::printf("bare %s\n", qVersion());
    return 0;
}
