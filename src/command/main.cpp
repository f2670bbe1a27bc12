// The program `orvale`; all of it stands in the library, so that tests reach it.
#include "command/Commands.h"

int main(int count, char** words) {
    return orvale::Main(count, words);
}
