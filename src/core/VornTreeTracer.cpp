#include "VornTreeTracer.h"

CVornTreeTracer gTracer;

CVornTreeTracer::CVornTreeTracer() = default;
CVornTreeTracer::CVornTreeTracer(const CVornTreeTracer&) = default;
CVornTreeTracer::~CVornTreeTracer() = default;
CVornTreeTracer& CVornTreeTracer::operator=(const CVornTreeTracer&) = default;

void CVornTreeTracer::HitTest(CVornTreeItem*, unsigned int) {}
void CVornTreeTracer::ItemText(CVornTreeItem*) {}
