/* One place where a fault can be put: reports the call with the address that it came from, then goes
   on to the real operation with everything in place. An exception thrown by the report passes
   through, as if the operation had thrown it. x86-64, System V calling convention. */
.macro place index, wrapper, target
    .text
    .globl \wrapper
    .hidden \wrapper
    .type \wrapper, @function
\wrapper:
    .cfi_startproc
    pushq %rbp
    .cfi_def_cfa_offset 16
    .cfi_offset %rbp, -16
    movq %rsp, %rbp
    .cfi_def_cfa_register %rbp
    subq $192, %rsp
    movq %rdi, 0(%rsp)
    movq %rsi, 8(%rsp)
    movq %rdx, 16(%rsp)
    movq %rcx, 24(%rsp)
    movq %r8, 32(%rsp)
    movq %r9, 40(%rsp)
    movq %rax, 48(%rsp)
    movups %xmm0, 64(%rsp)
    movups %xmm1, 80(%rsp)
    movups %xmm2, 96(%rsp)
    movups %xmm3, 112(%rsp)
    movups %xmm4, 128(%rsp)
    movups %xmm5, 144(%rsp)
    movups %xmm6, 160(%rsp)
    movups %xmm7, 176(%rsp)
    movl $\index, %edi
    movq 8(%rbp), %rsi
    call faultPlaceReached@PLT
    movups 176(%rsp), %xmm7
    movups 160(%rsp), %xmm6
    movups 144(%rsp), %xmm5
    movups 128(%rsp), %xmm4
    movups 112(%rsp), %xmm3
    movups 96(%rsp), %xmm2
    movups 80(%rsp), %xmm1
    movups 64(%rsp), %xmm0
    movq 48(%rsp), %rax
    movq 40(%rsp), %r9
    movq 32(%rsp), %r8
    movq 24(%rsp), %rcx
    movq 16(%rsp), %rdx
    movq 8(%rsp), %rsi
    movq 0(%rsp), %rdi
    leave
    .cfi_def_cfa %rsp, 8
    .cfi_restore %rbp
    jmp \target@PLT
    .cfi_endproc
    .size \wrapper, .-\wrapper
.endm
.section .note.GNU-stack,"",@progbits
