#include "app/Startup.h"

int main(int argc, char** argv) {
    return klt::Main(argc, argv);
}
