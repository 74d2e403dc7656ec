// The floor of a command line's start-up: a C++ program that links SQLite and prints its version.
#include <sqlite3.h>

#include <iostream>

int main()
{
    std::cout << "bare " << sqlite3_libversion() << std::endl;
    return std::cout ? 0 : 1;
}
