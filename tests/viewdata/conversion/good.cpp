// A symbol conversion library: puts "X" in front of a symbol. Some symbols ask for more.

#include <cstdio>
#include <cstring>

extern "C" void ConvertSymbol(const char* orisymbol, char** Return) {
    constexpr unsigned longest = 255;
    static char own[] = "\xC4OWN";
    if (std::strcmp(orisymbol, "NOTHING") == 0) {
        (*Return)[0] = '\0';
    } else if (std::strcmp(orisymbol, "LONG") == 0) {
        std::memset(*Return, 'L', longest);
        (*Return)[longest] = '\0';
    } else if (std::strcmp(orisymbol, "ENDLESS") == 0) {
        std::memset(*Return, 'E', longest + 1);
    } else if (std::strcmp(orisymbol, "INSIDE") == 0) {
        std::memset(++*Return, 'I', longest);
    } else if (std::strcmp(orisymbol, "OWN") == 0) {
        *Return = own;
    } else if (std::strcmp(orisymbol, "NULL") == 0) {
        *Return = nullptr;
    } else {
        std::snprintf(*Return, longest + 1, "X%s", orisymbol);
    }
}
