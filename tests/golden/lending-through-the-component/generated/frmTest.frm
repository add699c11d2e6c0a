VERSION 5.00
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
Begin VB.Form frmTest 
   AutoRedraw      =   -1  'True
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Test Lending"
   BeginProperty Font 
      Name            =   "Tahoma"
      Size            =   8.25
      Charset         =   0
      Weight          =   400
      Underline       =   0   'False
      Italic          =   0   'False
      Strikethrough   =   0   'False
   EndProperty
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   Width           =   6735
   ScaleWidth      =   6645
   Height          =   1680
   ScaleHeight     =   1305
   ShowInTaskbar   =   0   'False
   StartUpPosition =   2  'CenterScreen
   Begin VB.CommandButton cmdConnect 
      Caption         =   "Connect To Datasource"
      Height          =   315
      Left            =   240
      TabIndex        =   0
      Top             =   225
      Width           =   2205
         Enabled           =   0
   End
   Begin VB.CommandButton cmdTest 
      Caption         =   "Test Code"
      Height          =   315
      Left            =   240
      TabIndex        =   0
      Top             =   625
      Width           =   2205
   End
   Begin VB.Label lblStatus 
      AutoSize        =   -1  'True
      BackStyle       =   0  'Transparent
      Caption         =   "Current Status: No connection required from client"
      Height          =   195
      Left            =   2685
      TabIndex        =   1
      Top             =   240
      Width           =   3630
   End
End
Attribute VB_Name = "frmTest"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
Private Auto As New Auto
Private WithEvents EvtPublisher As Publisher
Private Publisher As Publisher
Private Publishers As New Publishers
Private WithEvents EvtMember As Member
Private Member As Member
Private Members As New Members

Private Sub Form_Load
    Set EvtPublisher = Auto.Publisher
    Set Publisher = Auto.Publisher
    Set EvtMember = Auto.Member
    Set Member = Auto.Member
End Sub

Private Sub cmdTest_Click()
    msgbox "Place some test code here"
End Sub

