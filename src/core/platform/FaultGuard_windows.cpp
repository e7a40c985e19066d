// Structured exception handling for a compiler that has no keyword for it: a frame whose handler is the
// C runtime's, with a table of one guarded range.
#include "../FaultGuard.h"

#include <windows.h>

extern "C" {

long vorn_fault_filter(EXCEPTION_POINTERS* exception, void*) {
  constexpr long kPassOn = 0, kHandle = 1;
  return exception->ExceptionRecord->ExceptionCode == EXCEPTION_ACCESS_VIOLATION ? kHandle : kPassOn;
}

// Calls function(argument); *faulted tells whether it was cut short by a fault.
bool vorn_guarded_call(bool (*function)(void*), void* argument, int* faulted);

asm(".text\n.globl vorn_guarded_call\n"
    ".def vorn_guarded_call; .scl 2; .type 32; .endef\n"
    ".seh_proc vorn_guarded_call\n"
    "vorn_guarded_call:\n"
    " pushq %rbx\n .seh_pushreg %rbx\n"
    " subq $32, %rsp\n .seh_stackalloc 32\n .seh_endprologue\n"
    " movq %r8, %rbx\n movl $0, (%rbx)\n"
    " movq %rcx, %rax\n movq %rdx, %rcx\n"
    ".Lvorn_try:\n call *%rax\n nop\n"
    ".Lvorn_end:\n jmp .Lvorn_out\n"
    ".Lvorn_fault:\n movl $1, (%rbx)\n xorl %eax, %eax\n"
    ".Lvorn_out:\n addq $32, %rsp\n popq %rbx\n ret\n"
    " .seh_handler __C_specific_handler, @except\n"
    " .seh_handlerdata\n .long 1\n"
    " .rva .Lvorn_try, .Lvorn_end, vorn_fault_filter, .Lvorn_fault\n"
    " .text\n .seh_endproc\n");

}  // extern "C"

bool vorn::CallGuarded(bool (*function)(void*), void* argument) {
  int faulted = 0;
  const bool result = vorn_guarded_call(function, argument, &faulted);
  return result && !faulted;
}
