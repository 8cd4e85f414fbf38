// __chkstk: the compiler calls it, with the wanted bytes in rax, before a stack frame of more than one
// page. It touches every page below rsp in turn, so that the guard page moves along. It keeps all registers.
__attribute__((naked)) void __chkstk(void) {
    __asm__(
        "pushq %rcx\n"
        "pushq %rax\n"
        "cmpq $0x1000, %rax\n"
        "leaq 24(%rsp), %rcx\n"
        "jb 2f\n"
        "1: subq $0x1000, %rcx\n"
        "testq %rcx, (%rcx)\n"
        "subq $0x1000, %rax\n"
        "cmpq $0x1000, %rax\n"
        "ja 1b\n"
        "2: subq %rax, %rcx\n"
        "testq %rcx, (%rcx)\n"
        "popq %rax\n"
        "popq %rcx\n"
        "ret\n");
}
