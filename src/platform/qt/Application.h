#pragma once

namespace plenair {

class Form;

// The program around its windows. RunProgram makes the toolkit ready, connects the desktop, calls `start`,
// and handles events until EndProgram is called; then it calls `end`. There is no command line: the toolkit's
// own options are not taken either. Gives the exit status.
int RunProgram(int argc, char** argv, void (*start)(), void (*end)());

// Ends the program without a question.
void EndProgram();

// For as long as `window` is there, the end of the desktop's session, or another's wish, ends the program:
// there is nobody to answer, so windows are neither asked nor do they ask, and what waits for an answer is
// taken as cancelled.
void EndWithSession(Form& window);

} // namespace plenair
