#pragma once

namespace plenair {

// Has the X server tell a key that repeats from one that is released: while it is held it goes down again and
// again, and comes up once, at the real release, however late the program looks. Without that the toolkit
// takes a repeat for a release whenever it sees the two halves of it apart. Nothing to do on other platforms.
void TellRepeatFromRelease();

} // namespace plenair
