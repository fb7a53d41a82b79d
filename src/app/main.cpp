#include "app/Main.h"

int main(int argc, char** argv) {
    return klt::Main(argc, argv);
}
