! A solver that takes its settings from the preferences, and whose messages land in its own log.
!
! usage: relax LOG
program relax
    use qzfileshared
    implicit none
    type(qz_preferences) :: preferences
    character(len=:), allocatable :: log_name
    integer :: steps, runs, handler, unit, length, status
    double precision :: tolerance, change

    call get_command_argument(1, length=length)
    if (command_argument_count() /= 1 .or. length == 0) error stop 'usage: relax LOG'
    allocate (character(len=length) :: log_name)
    call get_command_argument(1, log_name)

    ! What is not set stays as it is here.
    steps = 200
    tolerance = 1d-6
    runs = 0
    call preferences%open(qzpref_korvel, status)
    if (status /= qzpref_success) error stop 'there are no preferences'
    call preferences%begin_group('relax', status)
    call preferences%get('steps', steps, status)
    call preferences%get('tolerance', tolerance, status)
    call preferences%get('runs', runs, status)

    call open_log(log_name, unit, handler)
    write (unit, '(a,i0)') 'run ', runs + 1
    call iterate(steps, tolerance, change)
    if (change > tolerance) call qz_throw(handler, qzerr_warning, 'not there yet, 100 % of the steps')
    write (unit, '(a,es9.2)') 'last change ', change
    close (unit)

    call preferences%set('steps', steps * 2, status)
    call preferences%set('runs', runs + 1, status)
    call preferences%sync(status)
    if (status /= qzpref_success) error stop 'the run is not remembered'
    call preferences%close

contains

    ! A unit of "newunit=" is negative, which the handler would take for silence; and asking a unit
    ! for its number does not help. A number of one's own does.
    subroutine open_log(name, unit, handler)
        character(len=*), intent(in) :: name
        integer, intent(out) :: unit, handler
        integer :: status
        unit = qz_free_unit()
        open (unit, file=name, status='replace', action='write')
        call qzerrf_new(handler, status)
        call qzerrf_file(handler, unit, status)
        call qz_set_prefix(handler, 'relax:', status)
    end subroutine

    ! Newton's way to the square root of two, slowed down.
    subroutine iterate(steps, tolerance, change)
        integer, intent(in) :: steps
        double precision, intent(in) :: tolerance
        double precision, intent(out) :: change
        double precision :: x, previous
        integer :: i
        x = 1d3
        do i = 1, steps
            previous = x
            x = 0.99d0 * x + 0.01d0 * 0.5d0 * (x + 2 / x)
            change = abs(x - previous)
            if (change <= tolerance) exit
        end do
    end subroutine
end program
