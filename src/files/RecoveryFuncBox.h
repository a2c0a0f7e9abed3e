#pragma once
// The recovery store: while the program runs, each document with unsaved changes has a copy in a
// folder of this run, "recovery" in the user's data folder. A run that ends normally removes its
// folder; the folder of a run that crashed stays, and the next start offers it. Copies are written
// in the background, whole or not at all; what is seen of it here is a copy of the arrays.

/// Makes the folder of this run; to be called before any other of these. Without a folder (a full
/// or read-only disk) nothing is kept, which the user is told by the first KeepSession that has
/// something to keep.
void BeginSession();

/// Asks about the documents that earlier runs left behind: Yes opens them, changed and with the
/// file they had; No removes them; Cancel keeps them for the next start. Without any nothing is
/// asked. Documents for which there is no room stay in the store. A damaged copy is told by name
/// and put aside.
void RestoreSession();

/// Brings the store up to date: documents that have changed since their copy are copied, copies of
/// saved or closed ones go. Costs a copy of the arrays of those that changed, else next to nothing.
/// Not to be called while the mouse holds something.
void KeepSession();

/// Waits for what is still being written and removes the folder of this run.
void EndSession();
