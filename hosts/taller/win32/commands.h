// What the window's menus offer, each with its key.
#pragma once

#include <windows.h>

namespace conmuta::taller {

// Identifiers of commands and, beside them, of the controls. Tests find both by these.
enum CommandId : int {
  kOpenCapture = 1000,
  kNewLayout,
  kOpenLayout,
  kSaveLayout,
  kSaveLayoutAs,
  kExit,
  kUndo,
  kRedo,
  kPasteCapture,
  kRemoveAtCaret,
  kEditHeader,
  kEditCable,
  kZoomIn,
  kZoomOut,
  kZoomUsual,
  kShowAllItems,
  kShowReport,
  kShowLineReport,
  kAskForMark,
  kNextCall,
  kPreviousCall,
  kNextNoCall,
  kPreviousNoCall,
  kNextError,
  kPreviousError,
  kShowReasons,
  kGoToRemedy,
  kGuess,
  kShowAbout,
  kRecent = 1100,   // and the nine behind it
  kReasons = 1200,  // and those behind it

  kLinesView = 2000,
  kResultText,
  kLayoutList,
  kLayoutPos,
  kLayoutSize,
  kLayoutText,
  kLayoutType,
  kLayoutDoubt,
  kLayoutRemove,
  kAcrossSplitter,
  kDownSplitter,
  kMessageLine,
  kStatusLine,
};

// The menu bar; its own when the window has taken it.
HMENU MakeMenuBar();

// Their keys; to be destroyed.
HACCEL MakeAccelerators();

// The menu that has the files that were worked on last.
HMENU RecentMenuOf(HMENU bar);

}  // namespace conmuta::taller
