#include "door/door_session.h"

int main(int argc, char* argv[]) { return morvek::runDoor(argc, argv); }
