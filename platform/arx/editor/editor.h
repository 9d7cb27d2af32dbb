#pragma once

#include <cstddef>

#include "platform/arx/base/ads.h"

// What commands call to talk with the user and with the command processor. All of them work on the
// current document and give RTNORM on success, RTCAN after the cancel key (and when there is no
// input left), RTNONE for a plain Enter where that is allowed, RTKWORD for a keyword that
// acedInitGet named, and RTERROR for anything else unless a line says otherwise. Points are in the
// current UCS.

// --- output ------------------------------------------------------------------------------------

/// Prints on the command line in the platform's wide format. Returns RTNORM.
int acutPrintf(const ACHAR* format, ...);
/// Prints a text as it stands.
int acedPrompt(const ACHAR* text);

// --- prompts (prompts.cpp) ---------------------------------------------------------------------

/// What the next acedGet... accepts: bits of the platform, see InputControl in prompt.h. `keywords`
/// are separated by blanks; capital letters are the shortest form that is accepted; behind a word
/// "_" stand the global names of the words before it, which are what is given back.
int acedInitGet(int flags, const ACHAR* keywords);

/// A line of text; with `cronly` 0 a blank ends it. Text that doesn't fit into the buffer with its
/// terminating zero is asked for again.
int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result, std::size_t bufferLength);
template <std::size_t N>
int acedGetString(int cronly, const ACHAR* prompt, ACHAR (&result)[N]) {
  return acedGetString(cronly, prompt, result, N);
}
int acedGetKword(const ACHAR* prompt, ACHAR* result, std::size_t bufferLength);
template <std::size_t N>
int acedGetKword(const ACHAR* prompt, ACHAR (&result)[N]) {
  return acedGetKword(prompt, result, N);
}
/// The keyword (or the text, with flag 128) that the last prompt got.
int acedGetInput(ACHAR* result, std::size_t bufferLength);
template <std::size_t N>
int acedGetInput(ACHAR (&result)[N]) {
  return acedGetInput(result, N);
}
/// -32768 to 32767.
int acedGetInt(const ACHAR* prompt, int* result);
int acedGetReal(const ACHAR* prompt, ads_real* result);
/// `from`, or null: the point that relative input and ORTHOMODE start from.
int acedGetPoint(const ads_point from, const ACHAR* prompt, ads_point result);
int acedGetCorner(const ads_point from, const ACHAR* prompt, ads_point result);
/// A number, or the distance of two points.
int acedGetDist(const ads_point from, const ACHAR* prompt, ads_real* result);
/// Typed in degrees or shown by two points; the result is in radians.
int acedGetAngle(const ads_point from, const ACHAR* prompt, ads_real* result);

// --- picks (picks.cpp) -------------------------------------------------------------------------

/// A top-level entity of the current space under the cursor, and the point. A miss is RTERROR with
/// ERRNO 7, a plain Enter RTERROR with ERRNO 52.
int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point);
/// The entity under the cursor, also one inside block references. `xform` takes four rows of
/// column vectors as the 4 by 3 form has them.
int acedNEntSel(const ACHAR* prompt, ads_name entity, ads_point point, ads_point xform[4],
                resbuf** containers);
/// The same with the 4 by 4 matrix from the entity's own block to the world. With `pickFlag` 1
/// nothing is asked: `point` is where to look. `containers` (may be null) takes a list of RTENAME
/// from the innermost container outwards, null for a top-level entity; the caller releases it.
int acedNEntSelP(const ACHAR* prompt, ads_name entity, ads_point point, int pickFlag,
                 ads_matrix xform, resbuf** containers);

// --- selection sets (selection.cpp) ------------------------------------------------------------

/// `mode` null: asks; "I": the implied selection; "X": every entity of every space, also on locked,
/// off and frozen layers; "_" before a letter is allowed; ":$": asks with the two prompts (adding,
/// removing) that `first` points at, an array of two texts; ":N": asks, and attributes of block
/// references can be selected by themselves; "W" and "C": the box of two points.
/// `filter`: group codes and values, wild cards in texts. RTERROR when nothing is selected.
int acedSSGet(const ACHAR* mode, const void* first, const void* second, const resbuf* filter,
              ads_name set);
int acedSSLength(const ads_name set, Adesk::Int32* length);
/// RTERROR for an index outside the set.
int acedSSName(const ads_name set, Adesk::Int32 index, ads_name entity);
/// Both names null: a new empty set; only `set` null: a new set of the one entity; else adds.
int acedSSAdd(const ads_name entity, const ads_name set, ads_name result);
int acedSSDel(const ads_name entity, const ads_name set);
/// RTNORM when the set has the entity, else RTERROR.
int acedSSMemb(const ads_name entity, const ads_name set);
int acedSSFree(const ads_name set);
/// Makes the set the implied selection; a null set empties it.
int acedSSSetFirst(const ads_name set, const ads_name unused);

// --- drags and display (drag.cpp, display.cpp) -------------------------------------------------

using AcedDragTransform = int (*)(ads_point cursor, ads_matrix transform);
/// Drags a selection: the transform is asked for each place of the cursor and once more for the
/// point that is accepted, which goes to `point`. No ortho. The drawing isn't changed.
int acedDragGen(const ads_name set, const ACHAR* prompt, int cursorType,
                AcedDragTransform transform, ads_point point);
/// `mode` 1 redraws, 2 hides, 3 highlights, 4 removes the highlight; a null entity: all (1 only).
int acedRedraw(const ads_name entity, int mode);
void acedUpdateDisplay();

// --- coordinates (ucs.cpp, view.cpp) -----------------------------------------------------------

/// `from` and `to`: RTSHORT 0 WCS, 1 UCS, 2 display; RTENAME or RT3DPOINT: an entity's or a
/// normal's coordinate system. `displacement` non-zero turns the point as a vector.
int acedTrans(const ads_point point, const resbuf* from, const resbuf* to, int displacement,
              ads_point result);
/// False without a current document. `vector` turns without moving.
bool acdbUcs2Wcs(const ads_point point, ads_point result, bool vector);
bool acdbWcs2Ucs(const ads_point point, ads_point result, bool vector);

// --- variables (sysvars.cpp) -------------------------------------------------------------------

/// Fills type and value; a text is the caller's, released with acutDelString. RTERROR for a name
/// that isn't a variable.
int acedGetVar(const ACHAR* name, resbuf* result);
/// RTERROR for an unknown or read-only variable and for a value that it refuses; nothing changes
/// then. Whole numbers and reals are taken for each other where nothing is lost.
int acedSetVar(const ACHAR* name, const resbuf* value);

// --- commands (command_tokens.cpp) -------------------------------------------------------------

/// Runs a command to its end with the answers given as pairs of type and value, ended by 0 or
/// RTNONE. Answers that are missing cancel the command. RTNORM; RTCAN when it was cancelled;
/// RTERROR when there is no such command.
int acedCommandS(int type, ...);
int acedCmdS(const resbuf* list, bool forFutureUse = false, void* forFutureUse2 = nullptr);
