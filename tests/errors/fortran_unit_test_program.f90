! The Fortran side of the test: opens, writes and closes units as a program does.
module fortran_unit_test_program
    use, intrinsic :: iso_c_binding, only: c_char, c_int
    implicit none
contains
    subroutine program_open(unit, path, length, is_formatted) bind(c)
        integer(c_int), value :: unit, length, is_formatted
        character(kind=c_char), intent(in) :: path(length)
        character(len=length) :: name
        integer :: i
        do i = 1, length
            name(i:i) = path(i)
        end do
        if (is_formatted /= 0) then
            open (unit=unit, file=name, status='replace', action='write')
        else
            open (unit=unit, file=name, status='replace', form='unformatted')
        end if
    end subroutine

    subroutine program_write(unit, number) bind(c)
        integer(c_int), value :: unit, number
        write (unit, '(a,i0)') 'program ', number
    end subroutine

    subroutine program_close(unit) bind(c)
        integer(c_int), value :: unit
        close (unit)
    end subroutine
end module
