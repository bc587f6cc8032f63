#pragma once

// Of the model alone, which changes the network.
namespace plenair {

// Gives the network another NetworkRevision: the colour or an end of a duct has changed, or a duct is gone.
void NoteNetworkChange();

} // namespace plenair
