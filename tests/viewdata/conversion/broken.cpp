// A library without the export that a symbol conversion needs.

extern "C" int ConvertSymbols() {
    return 0;
}
