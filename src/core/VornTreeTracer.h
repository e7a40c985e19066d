// A hook object for debugging builds. Its operations do nothing, so that calls may stay in place.
#pragma once

#include "VornComCtlApi.h"

class CVornTreeItem;

class VORNCOMCTL_API CVornTreeTracer {
 public:
  CVornTreeTracer();
  CVornTreeTracer(const CVornTreeTracer& source);
  virtual ~CVornTreeTracer();
  // Copies nothing.
  CVornTreeTracer& operator=(const CVornTreeTracer& source);

  void HitTest(CVornTreeItem* item, unsigned int flags);
  void ItemText(CVornTreeItem* item);
};

extern VORNCOMCTL_API CVornTreeTracer gTracer;
