#include "app/modMain.h"

int main(int argc, char** argv) {
    return kavrin::Main(argc, argv);
}
