// The letters typed so far, for all controls: typing goes on from one control to the next. Internal.
#pragma once

#include <windows.h>

namespace vorn {

enum class TypeAheadStep {
  First,  // a search begins
  Next,   // it goes on
  Full,   // no room: the letter is not taken
};

// Whether the search takes this character at all.
bool IsTypeAheadCharacter(wchar_t character);

// Takes a letter typed at a tick (milliseconds). A pause of 800 ms begins a new search.
TypeAheadStep AppendTypeAhead(wchar_t character, DWORD tick);

const wchar_t* TypeAheadText();
void ClearTypeAhead();

}  // namespace vorn
