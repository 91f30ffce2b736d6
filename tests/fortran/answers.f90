module answers
    implicit none

contains

    !> Ends the program with an error unless an answer is right.
    subroutine require(condition, what)
        logical, intent(in) :: condition
        character(len=*), intent(in) :: what
        if (.not. condition) then
            print '(2a)', 'wrong: ', what
            error stop 1
        end if
    end subroutine
end module
