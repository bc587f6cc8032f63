#pragma once

// A library that stands before the C library and lets one system call go wrong. Calls count that concern
// `folder`: those with a path in it, and those on files opened there. A test links it and arms it; for any
// other program it is preloaded and armed by its environment:
//
//     LD_PRELOAD=…/libplenair_faults.so FAULT_FOLDER=/tmp/x FAULT_CALL=3 FAULT=28 plenair
//
// A fault is the error that the call gives (28 is a full disk), or one of these.
enum Fault {
    kShortCount = -1, // a read or write stops half-way; other calls go on as usual
    kKilled = -2,     // the process is killed there, in the middle of a write
    kPowerCut = -3,   // the same, and what was not brought to the disk is lost
};

extern "C" {
void ArmFault(const char* folder, long call, int fault);
long DisarmFault(); // gives the calls seen since

// The name of the call that the fault struck; empty if none was reached.
const char* StruckCall();

// What a power cut does to the files that are or were open.
void LoseWhatIsNotOnTheDisk();
}
