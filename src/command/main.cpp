#include "command/Commands.h"

int main(int count, char** words) {
    return orvale::Main(count, words);
}
